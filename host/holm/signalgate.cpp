#include "signalgate.h"

#include "callqueue.h"
#include "scriptengine.h"

#include <QtScript/QScriptContext>

namespace {
const QString gatedFunction = QStringLiteral("__holm_gated");
const QScriptValue::PropertyFlags hidden =
    QScriptValue::ReadOnly | QScriptValue::Undeletable | QScriptValue::SkipInEnumeration;
} // namespace

SignalGate::SignalGate(ScriptEngine &engine, CallQueue &calls)
    : m_engine(engine)
    , m_calls(calls)
{
}

void SignalGate::install()
{
    // Signals, like all native functions, inherit both from here.
    QScriptValue prototype =
        m_engine.globalObject().property(QStringLiteral("Function")).property(QStringLiteral("prototype"));
    for (const QString &name : {QStringLiteral("connect"), QStringLiteral("disconnect")}) {
        QScriptValue replacement = m_engine.newFunction(connectOrDisconnect, this);
        replacement.setData(prototype.property(name));
        prototype.setProperty(name, replacement, QScriptValue::SkipInEnumeration);
    }
}

QScriptValue SignalGate::connectOrDisconnect(QScriptContext *context, QScriptEngine *, void *gate)
{
    // signal.connect(function), or signal.connect(receiver, function or name)
    QScriptValueList arguments;
    for (int i = 0; i < context->argumentCount(); ++i)
        arguments.append(context->argument(i));
    if (!arguments.isEmpty()) {
        QScriptValue &last = arguments.last();
        if (last.isString())
            last = arguments.first().property(last.toString());
        if (last.isFunction())
            last = static_cast<SignalGate *>(gate)->gated(last);
    }
    return context->callee().data().call(context->thisObject(), arguments);
}

QScriptValue SignalGate::gated(QScriptValue function)
{
    const QScriptValue known = function.property(gatedFunction, QScriptValue::ResolveLocal);
    if (known.isValid())
        return known;
    QScriptValue forwarder = m_engine.newFunction(forward, this);
    forwarder.setData(function);
    function.setProperty(gatedFunction, forwarder, hidden);
    return forwarder;
}

QScriptValue SignalGate::forward(QScriptContext *context, QScriptEngine *, void *gate)
{
    auto &self = *static_cast<SignalGate *>(gate);
    QScriptValueList arguments;
    for (int i = 0; i < context->argumentCount(); ++i)
        arguments.append(context->argument(i));
    const auto task = [&engine = self.m_engine, receiver = context->thisObject(),
                       function = context->callee().data(),
                       arguments] { engine.call(receiver, function, arguments, true); };
    if (self.m_calls.isPartOfCall())
        task();
    else
        self.m_calls.deliver(task);
    return QScriptValue();
}
