#include "providerplugins.h"

#include "application.h"

#include <orvanecore/iprovider.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonObject>
#include <QtCore/QPluginLoader>

#include <algorithm>

ProviderPlugins::ProviderPlugins() = default;

ProviderPlugins::~ProviderPlugins()
{
    stop();
}

QStringList ProviderPlugins::in(const QString &folder)
{
    QStringList files;
    const QFileInfoList entries =
        QDir(folder).entryInfoList({QStringLiteral("*.so")}, QDir::Files, QDir::Name);
    for (const QFileInfo &entry : entries)
        files.append(entry.absoluteFilePath());
    return files;
}

QString ProviderPlugins::load(const QStringList &files)
{
    for (const QString &file : files) {
        if (!QFileInfo::exists(file))
            return file + QLatin1String(": there is no such plug-in");
        QPluginLoader loader(QFileInfo(file).absoluteFilePath());
        const QString interface = loader.metaData().value(QLatin1String("IID")).toString();
        if (interface.isEmpty())
            return file + QLatin1String(": not a plug-in: ") + loader.errorString();
        if (interface != QLatin1String(IProvider_iid))
            return file + QLatin1String(": a plug-in of another interface, ")
                + interface + QLatin1String(", where " IProvider_iid " is wanted");
        QObject *instance = loader.instance();
        if (!qobject_cast<IProvider *>(instance))
            return file + QLatin1String(": cannot be loaded: ") + loader.errorString();
        // A file that is named twice has one instance, and that is ours already.
        const auto isSame = [instance](const std::unique_ptr<QObject> &plugin) {
            return plugin.get() == instance;
        };
        if (std::none_of(m_plugins.cbegin(), m_plugins.cend(), isSame))
            m_plugins.emplace_back(instance);
    }
    return QString();
}

void ProviderPlugins::start(Application &application, IProvider &ownProvider)
{
    m_started.push_back(&ownProvider);
    for (const std::unique_ptr<QObject> &plugin : m_plugins)
        m_started.push_back(qobject_cast<IProvider *>(plugin.get()));

    for (IProvider *provider : m_started) {
        application.addProvider(provider);
        provider->InitializeScript(&application);
    }
    for (IProvider *provider : m_started)
        provider->BeginInitialize();
    for (IProvider *provider : m_started)
        provider->EndInitialize();
}

void ProviderPlugins::stop()
{
    while (!m_started.empty()) {
        m_started.back()->Unload();
        m_started.pop_back();
    }
}
