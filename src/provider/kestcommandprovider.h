#pragma once

#include <orvanecore/iprovider.h>

#include <QtCore/QMutex>
#include <QtCore/QVariant>

#include <array>
#include <memory>
#include <unordered_map>

#include "device/radiomanager.h"
#include "device/s2pcontrol.h"
#include "network/fetch.h"
#include "platform/hiddenwindows.h"
#include "platform/pocketoutlook.h"

class FetchCallbacks;
class KestMainProvider;
class NetworkThread;
class QDir;
class RegistryMonitor;
struct RegistrySubscription;

/// The command provider: forty native functions for widget scripts, and their start and stop.
///
/// A script function checks its arguments first; bad ones are reported to the user and nothing else
/// happens (see checkArguments()). None returns a value: results go to a script function among
/// the arguments, through answer(). Each function is defined in its subsystem's folder and explained
/// in docs/functions.md. GUI thread only.
class KestCommandProvider : public QObject, public IProvider
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID IProvider_iid)
    Q_INTERFACES(IProvider)
    Q_PROPERTY(bool awaitsAnswers READ awaitsAnswers)

public:
    using Function = void (KestCommandProvider::*)(FunctionArguments *);
    using ReturningFunction = QScriptValue (KestCommandProvider::*)(FunctionArguments *);

    KestCommandProvider();
    ~KestCommandProvider() override;

    /// The provider made last, or null if there is none or that one has been destroyed.
    static KestCommandProvider *instance();

    /// The host, or null before InitializeScript().
    IApplication *application() const;

    /// Whether callbacks of fetches are still to come.
    bool awaitsAnswers() const;

    QString name() const override;
    void InitializeScript(IApplication *application) override;
    void BeginInitialize() override;
    void EndInitialize() override;
    void Unload() override;
    void invoke(int index, FunctionArguments *arguments) override;
    QScriptValue invokeRet(int index, FunctionArguments *arguments) override;

    // files/
    void getFiles(FunctionArguments *arguments);
    void getDirs(FunctionArguments *arguments);
    void launch(FunctionArguments *arguments);
    void deleteFile(FunctionArguments *arguments);
    void deleteDir(FunctionArguments *arguments);

    /// Starts a program or opens a document through the shell, in the file's own folder. Only a file
    /// whose name holds ".exe" gets @p parameters. A failure is not reported.
    static void launch(const QString &file, const QString &parameters);

    /// The path of the file that a script means by @p path: where the device has it if it begins with a slash
    /// or a backslash, else below the application directory.
    static QString resolvedPath(const QString &path);

    // registry/
    void readReg(FunctionArguments *arguments);
    void writeReg(FunctionArguments *arguments);
    void regEventSuscribe(FunctionArguments *arguments);
    void regEventUnSuscribe(FunctionArguments *arguments);

    // provider/
    void setConfig(FunctionArguments *arguments);
    void getConfig(FunctionArguments *arguments);
    void deleteConfig(FunctionArguments *arguments);

    // dialogs/
    void browseFiles(FunctionArguments *arguments);
    void textInput(FunctionArguments *arguments);
    void numInput(FunctionArguments *arguments);
    void listInput(FunctionArguments *arguments);
    void selectContact(FunctionArguments *arguments);

    // device/
    void s2pCommand(FunctionArguments *arguments);
    void s2pStatus(FunctionArguments *arguments);
    void getRadioStatus(FunctionArguments *arguments);
    void setRadioStatus(FunctionArguments *arguments);
    void setBluetoothDiscoverable(FunctionArguments *arguments);
    void getSoundProfile(FunctionArguments *arguments);
    void setSoundProfile(FunctionArguments *arguments);

    // network/
    void getUrl(FunctionArguments *arguments);
    void getRSSFeed(FunctionArguments *arguments);
    void getWeather(FunctionArguments *arguments);

    // pim/
    void contactImage(FunctionArguments *arguments);
    void contactInfo(FunctionArguments *arguments);
    void poomEventSuscribe(FunctionArguments *arguments);
    void poomEventUnSuscribe(FunctionArguments *arguments);
    void getAppointments(FunctionArguments *arguments);
    void getTasks(FunctionArguments *arguments);

    // programs/
    void extractIcon(FunctionArguments *arguments);
    void openProgramsFolder(FunctionArguments *arguments);
    void cacheProgramsFolder(FunctionArguments *arguments);
    /// Of the same form as the others, but never published to scripts.
    void clearProgramsFolderCache(FunctionArguments *arguments);
    void focusWindow(FunctionArguments *arguments);
    void runningProcesses(FunctionArguments *arguments);
    void closeWindow(FunctionArguments *arguments);
    void clearRunningProcessesResources(FunctionArguments *arguments);

public slots:
    void registryChanged(RegistryMonitor *monitor, const QVariant &oldValue, const QVariant &newValue);

    /// Takes up the settings of the Programs caches.
    void configChanged();

protected:
    /// By index, as published.
    std::unique_ptr<Function[]> functionTable;
    /// Empty: no function returns a value.
    std::unique_ptr<ReturningFunction[]> returningFunctionTable;

    /// Calls a script function with results, its this-object being what the script gave.
    void answer(const QScriptValue &thisObject, const QScriptValue &callback,
                const QScriptValueList &results);

private:
    void initialize_functions();
    QScriptValue toArray(const QStringList &texts);

    void chooseOfGivenEntries(const FunctionArguments &arguments);
    void chooseOfStoredEntries(const FunctionArguments &arguments);
    void editList(const FunctionArguments &arguments, const QStringList &entries, int index, bool editable,
                  bool valueOnOdd);
    void storeList(const FunctionArguments &arguments, const QStringList &entries);

    KestMainProvider *configuration() const;
    static void deleteRecursive(QDir &dir);

    void InitPOOM();
    void DeInitPOOM();
    bool checkOutlookCall(const char *function, bool argumentsAreValid) const;
    bool raiseOutlookEvent(const platform::WindowMessage &message);
    void setOutlookNotifications(platform::OutlookFolder folder, bool on);
    void startNetworkThread();
    void stopNetworkThread();
    void fetch(FetchKind kind, const FunctionArguments &arguments);

    static KestCommandProvider *_instance;

    IApplication *m_application = nullptr;
    RadioManager m_radios;
    S2pControl m_s2p;
    std::unordered_map<QString, std::unique_ptr<RegistrySubscription>> registryMonitors; ///< by path
    QMutex m_registryMutex;
    QMutex m_poomMutex; ///< held by every function on contacts, appointments and tasks for its whole run
    std::unique_ptr<platform::IPOutlookApp> m_outlook; ///< null while there is no connection
    std::unique_ptr<platform::HiddenWindowClass> m_messageWindowClass;
    std::unique_ptr<platform::HiddenWindow> m_messageWindow; ///< is told of changes by other programs
    std::array<int, 3> m_outlookSubscriptions{}; ///< that have not been undone, by folder
    QObject *configProvider = nullptr;
    std::unique_ptr<FetchCallbacks> m_fetches; ///< longer than the thread lives
    std::unique_ptr<NetworkThread> networkThread; ///< null until BeginInitialize()
};
