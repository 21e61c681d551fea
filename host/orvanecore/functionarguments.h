#pragma once

#include "orvanecore_global.h"

#include <QtScript/QScriptValue>

/// The arguments of one script call, in call order.
///
/// A view: the host owns the values and keeps them for as long as the call lasts.
class ORVANECORE_EXPORT FunctionArguments
{
public:
    FunctionArguments(const QScriptValue *arguments, int count);

    int argumentCount() const;

    /// A copy of argument @p index. The index is not checked: ask argumentCount() first.
    QScriptValue argument(int index) const;

private:
    const QScriptValue *m_arguments;
    int m_count;
};
