#pragma once

#include <orvanecore/functionarguments.h>

/// An argument that may be missing: it counts only if it is there and of the right type.
template <class Value>
Value argumentOr(const FunctionArguments &arguments, int index, bool (QScriptValue::*isOfType)() const,
                 Value (QScriptValue::*convert)() const, const Value &otherwise)
{
    if (index >= arguments.argumentCount())
        return otherwise;
    const QScriptValue argument = arguments.argument(index);
    return (argument.*isOfType)() ? (argument.*convert)() : otherwise;
}

inline QString textOr(const FunctionArguments &arguments, int index, const QString &otherwise)
{
    return argumentOr(arguments, index, &QScriptValue::isString, &QScriptValue::toString, otherwise);
}

inline int numberOr(const FunctionArguments &arguments, int index, int otherwise)
{
    return argumentOr(arguments, index, &QScriptValue::isNumber, &QScriptValue::toInt32, otherwise);
}

inline bool boolOr(const FunctionArguments &arguments, int index, bool otherwise)
{
    return argumentOr(arguments, index, &QScriptValue::isBool, &QScriptValue::toBool, otherwise);
}

/// The object identifier that a number names. 0, which names nothing, if it cannot be one.
inline qint32 oidOf(const QScriptValue &argument)
{
    const double number = argument.toNumber();
    const qint32 oid = argument.toInt32(); // cuts fractions and higher bits off
    return static_cast<double>(oid) == number ? oid : 0;
}
