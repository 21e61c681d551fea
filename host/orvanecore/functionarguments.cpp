#include "functionarguments.h"

FunctionArguments::FunctionArguments(const QScriptValue *arguments, int count)
    : m_arguments(arguments)
    , m_count(count)
{
}

int FunctionArguments::argumentCount() const
{
    return m_count;
}

QScriptValue FunctionArguments::argument(int index) const
{
    return m_arguments[index];
}
