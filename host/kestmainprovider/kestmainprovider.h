#pragma once

#include "kestmainprovider_global.h"

#include <orvanecore/iprovider.h>

#include <QtCore/QVariant>

class ConfigurationStore;

/// The host's own provider, named "KestApi": the configuration store that all providers share.
///
/// It publishes no script functions. GUI thread only.
class KESTMAINPROVIDER_EXPORT KestMainProvider : public QObject, public IProvider
{
    Q_OBJECT
    Q_INTERFACES(IProvider)

public:
    /// Keeps the values in @p configurationFile; see ConfigurationStore.
    explicit KestMainProvider(const QString &configurationFile, QObject *parent = nullptr);
    ~KestMainProvider() override;

    void setConfig(const QString &section, const QString &key, const QVariant &value);

    /// The stored value, or @p defaultValue.
    QVariant getConfig(const QString &section, const QString &key, const QVariant &defaultValue) const;

    /// Deletes one value, or the whole section if @p key is empty.
    void deleteConfig(const QString &section, const QString &key);

    QString name() const override;
    void InitializeScript(IApplication *application) override;
    void BeginInitialize() override;
    void EndInitialize() override;
    void Unload() override;
    void invoke(int index, FunctionArguments *arguments) override;
    QScriptValue invokeRet(int index, FunctionArguments *arguments) override;

signals:
    /// A value was changed, here or in the file by another program.
    void configChanged();

private:
    ConfigurationStore *const m_store;
};
