#pragma once

#include "fakeplatform.h"
#include "holm/application.h"
#include "kestmainprovider/kestmainprovider.h"
#include "provider/kestcommandprovider.h"

#include <QtCore/QTemporaryDir>
#include <gmock/gmock.h>

inline void PrintTo(const QString &text, std::ostream *stream)
{
    *stream << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QVariant &value, std::ostream *stream)
{
    *stream << (value.isValid() ? value.typeName() : "invalid") << ' ' << value.toString().toStdString();
}

/// holm's application, with the calls that a test may ask for written down in order.
class RecordingApplication : public Application
{
public:
    using Application::Application;

    void registerFunction(IProvider *provider, const QString &name, bool interactive, bool returnsValue,
                          int index) override;
    IProvider *provider(const QString &name) const override;
    void loadTranslation(const QString &basePath) override;
    void setNativeDialogOpen(bool open) override;
    QScriptValue callFunction(const QScriptValue &thisObject, const QScriptValue &function,
                              const QScriptValueList &arguments, bool reportErrors) override;

    QStringList registered;
    mutable QStringList calls;
};

/// A started provider in an application directory of its own, and a script engine to call it from.
///
/// Scripts find "cb", a callback that keeps its arguments in "results", and "widget", a QObject.
class ProviderTest : public testing::Test
{
protected:
    ProviderTest();
    ~ProviderTest() override;

    /// Evaluates a script, in which "$APP" stands for the application directory. Returns the result as JSON.
    QString run(QString script);

    /// Runs the event loop until all fetches have called back, a minute at most. Returns whether they have.
    bool waitForAnswers();

    /// Makes a file below the temporary directory, and its folders.
    void makeFile(const QString &path) const;
    bool exists(const QString &path) const;

    /// The message boxes shown since the last call, as "[title] text".
    QStringList takeMessages();

    QTemporaryDir m_dir;
    FakePlatform *m_platform; ///< owned by the platform layer, where it is in force
    PlatformInForce m_platformInForce; ///< longer than the provider lives
    FakeShell *m_shell;
    QObject m_widget;
    RecordingApplication m_application;
    KestMainProvider m_store;
    platform::RegistryStore m_registry; ///< the device's, as another program sees it
    KestCommandProvider m_provider;

private:
    class MessageReader;
    std::unique_ptr<MessageReader> m_reader;
};
