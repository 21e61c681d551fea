#include "provider/kestcommandprovider.h"

#include "dialogs/listdialog.h"
#include "kestmainprovider/kestmainprovider.h"
#include "network/fetchcallbacks.h"
#include "network/networkthread.h"
#include "orvanecore/iapplication.h"
#include "programs/programsmenu.h"
#include "registry/registrymonitor.h"

KestCommandProvider *KestCommandProvider::_instance = nullptr;

KestCommandProvider::KestCommandProvider()
{
    _instance = this;
}

KestCommandProvider::~KestCommandProvider()
{
    for (const auto &watched : registryMonitors)
        watched.second->monitor->stop();
    if (_instance == this)
        _instance = nullptr;
}

KestCommandProvider *KestCommandProvider::instance()
{
    return _instance;
}

IApplication *KestCommandProvider::application() const
{
    return m_application;
}

QString KestCommandProvider::name() const
{
    return QStringLiteral("KestCmd");
}

void KestCommandProvider::InitializeScript(IApplication *application)
{
    m_application = application;
    initialize_functions();
}

void KestCommandProvider::BeginInitialize()
{
    m_application->loadTranslation(m_application->applicationPath()
                                   + QLatin1String("language/kestcmdprovider_"));

    configProvider = dynamic_cast<QObject *>(m_application->provider(QStringLiteral("KestApi")));
    // By name: the host promises the signal, not a class. Without a provider only Qt's own warning tells.
    connect(configProvider, SIGNAL(configChanged()), this, SLOT(configChanged()));

    m_radios.load();
    InitPOOM();
    startNetworkThread();
}

void KestCommandProvider::EndInitialize() { }

void KestCommandProvider::Unload()
{
    ProgramsMenu::purgeCaches(QString());
    ProgramsMenu::purgeIconsCache();
    ListDialog::forgetStyles();
    m_radios.release();
    DeInitPOOM();
    stopNetworkThread();
}

void KestCommandProvider::answer(const QScriptValue &thisObject, const QScriptValue &callback,
                                 const QScriptValueList &results)
{
    m_application->callFunction(thisObject, callback, results, true);
}

QScriptValue KestCommandProvider::toArray(const QStringList &texts)
{
    QScriptValue array = m_application->newArray(static_cast<uint>(texts.size()));
    quint32 index = 0;
    for (const QString &text : texts)
        array.setProperty(index++, text);
    return array;
}
