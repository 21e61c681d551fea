#include "provider/argumentcheck.h"

#include "kestmainprovider/kestmessagebox.h"
#include "orvanecore/functionarguments.h"

#include <QtCore/QCoreApplication>

namespace {

struct TypeTest
{
    ArgumentType type;
    bool (QScriptValue::*holds)() const;
};

constexpr TypeTest typeTests[] = {
    {ArgumentType::String, &QScriptValue::isString},   {ArgumentType::Number, &QScriptValue::isNumber},
    {ArgumentType::Bool, &QScriptValue::isBool},       {ArgumentType::Object, &QScriptValue::isObject},
    {ArgumentType::QObject, &QScriptValue::isQObject}, {ArgumentType::Function, &QScriptValue::isFunction},
    {ArgumentType::Array, &QScriptValue::isArray},     {ArgumentType::Null, &QScriptValue::isNull},
};

bool isOneOf(const QScriptValue &value, ArgumentTypes types)
{
    if (types.testFlag(ArgumentType::Any))
        return true;
    for (const TypeTest &test : typeTests) {
        if (types.testFlag(test.type) && (value.*test.holds)())
            return true;
    }
    return false;
}

} // namespace

bool argumentsMatch(const FunctionArguments &arguments, const ArgumentRule &rule)
{
    const int count = arguments.argumentCount();
    if (count < rule.least || count > rule.most)
        return false;
    int index = 0;
    for (const ArgumentTypes types : rule.types) {
        if (index >= count)
            break;
        if (!isOneOf(arguments.argument(index++), types))
            return false;
    }
    return true;
}

bool checkArguments(const char *function, const FunctionArguments &arguments, const ArgumentRule &rule)
{
    if (argumentsMatch(arguments, rule))
        return true;
    reportInvalidArguments(function);
    return false;
}

void reportInvalidArguments(const char *function)
{
    reportError(function, QT_TRANSLATE_NOOP("KestCommandProvider", "Invalid function arguments."));
}

void reportError(const char *function, const char *message)
{
    KestMessageBox::information(nullptr, QStringLiteral("Error"),
                                QLatin1String(function) + QLatin1String(": ")
                                    + QCoreApplication::translate("KestCommandProvider", message));
}
