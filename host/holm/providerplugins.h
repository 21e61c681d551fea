#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>

#include <memory>
#include <vector>

class Application;
class IProvider;

/// The provider plug-ins of a run, from their loading to their end.
class ProviderPlugins
{
public:
    ProviderPlugins();
    /// Unloads the providers if they were started.
    ~ProviderPlugins();
    Q_DISABLE_COPY(ProviderPlugins)

    /// The plug-ins in a folder, in the order of their names.
    static QStringList in(const QString &folder);

    /// Loads the files. Returns an empty text, or why one is not a provider, beginning with its name.
    QString load(const QStringList &files);

    /// Takes every provider through its start-up, @p ownProvider, which belongs to the caller, first.
    void start(Application &application, IProvider &ownProvider);

    /// Takes every provider through its end, the last started first.
    void stop();

private:
    std::vector<std::unique_ptr<QObject>> m_plugins;
    std::vector<IProvider *> m_started;
};
