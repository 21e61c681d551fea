#include "provider/kestcommandprovider.h"

#include "kestmainprovider/kestmainprovider.h"
#include "orvanecore/functionarguments.h"
#include "orvanecore/iapplication.h"
#include "programs/programsmenu.h"
#include "provider/argumentcheck.h"

namespace {

// Numbers are kept as doubles, whole ones too; whatever is not a number or a boolean as its text.
QVariant toStoredValue(const QScriptValue &value)
{
    if (value.isNumber())
        return value.toNumber();
    if (value.isBool())
        return value.toBool();
    return value.toString();
}

QScriptValue toScriptValue(const QVariant &stored)
{
    switch (static_cast<QMetaType::Type>(stored.type())) {
    case QMetaType::QString:
        return stored.toString();
    case QMetaType::Bool:
        return stored.toBool();
    case QMetaType::Int:
        return stored.toInt();
    default:
        return stored.toDouble();
    }
}

} // namespace

void KestCommandProvider::setConfig(FunctionArguments *arguments)
{
    const int count = arguments->argumentCount();
    if (!argumentsMatch(*arguments, {3, anyCount, {ArgumentType::String}}) || count % 2 == 0) {
        reportInvalidArguments("setConfig");
        return;
    }

    KestMainProvider *store = configuration();
    if (!store)
        return;
    const QString section = arguments->argument(0).toString();
    for (int i = 1; i < count; i += 2)
        store->setConfig(section, arguments->argument(i).toString(),
                         toStoredValue(arguments->argument(i + 1)));
}

void KestCommandProvider::getConfig(FunctionArguments *arguments)
{
    if (!checkArguments("getConfig", *arguments,
                        {4, anyCount, {ArgumentType::Any, ArgumentType::Object, ArgumentType::Function}}))
        return;

    const KestMainProvider *store = configuration();
    const QString section = arguments->argument(0).toString();
    QScriptValue values = m_application->newArray(0);
    for (int i = 3; i < arguments->argumentCount(); ++i) {
        const QScriptValue key = arguments->argument(i);
        const QVariant stored =
            store && key.isString() ? store->getConfig(section, key.toString(), QVariant()) : QVariant();
        values.setProperty(static_cast<quint32>(i - 3),
                           stored.isValid() ? toScriptValue(stored) : m_application->nullValue());
    }
    answer(arguments->argument(1), arguments->argument(2), {values});
}

void KestCommandProvider::deleteConfig(FunctionArguments *arguments)
{
    if (!checkArguments("deleteConfig", *arguments, {1, 2, {ArgumentType::String, ArgumentType::String}}))
        return;

    KestMainProvider *store = configuration();
    if (!store)
        return;
    const bool hasKey = arguments->argumentCount() == 2;
    store->deleteConfig(arguments->argument(0).toString(),
                        hasKey ? arguments->argument(1).toString() : QString());
}

void KestCommandProvider::configChanged()
{
    ProgramsMenu::readSettings();
    if (ProgramsMenu::useCache)
        ProgramsMenu::buildCaches(ProgramsMenu::systemFolder());
    else
        ProgramsMenu::purgeCaches(QString());
    if (!ProgramsMenu::useIconsCache)
        ProgramsMenu::purgeIconsCache();
}

KestMainProvider *KestCommandProvider::configuration() const
{
    auto *store = qobject_cast<KestMainProvider *>(configProvider);
    if (!store)
        qWarning("The host has no configuration store: nothing is kept.");
    return store;
}
