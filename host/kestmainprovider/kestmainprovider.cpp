#include "kestmainprovider.h"

#include "configurationstore.h"

KestMainProvider::KestMainProvider(const QString &configurationFile, QObject *parent)
    : QObject(parent)
    , m_store(new ConfigurationStore(configurationFile, this))
{
    connect(m_store, &ConfigurationStore::changed, this, &KestMainProvider::configChanged);
}

KestMainProvider::~KestMainProvider() = default;

void KestMainProvider::setConfig(const QString &section, const QString &key, const QVariant &value)
{
    m_store->setValue(section, key, value);
}

QVariant KestMainProvider::getConfig(const QString &section, const QString &key,
                                     const QVariant &defaultValue) const
{
    return m_store->value(section, key, defaultValue);
}

void KestMainProvider::deleteConfig(const QString &section, const QString &key)
{
    m_store->remove(section, key);
}

QString KestMainProvider::name() const
{
    return QStringLiteral("KestApi");
}

void KestMainProvider::InitializeScript(IApplication *) { }

void KestMainProvider::BeginInitialize() { }

void KestMainProvider::EndInitialize() { }

void KestMainProvider::Unload() { }

void KestMainProvider::invoke(int, FunctionArguments *) { }

QScriptValue KestMainProvider::invokeRet(int, FunctionArguments *)
{
    return QScriptValue();
}
