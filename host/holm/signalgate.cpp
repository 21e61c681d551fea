#include "signalgate.h"

#include "application.h"

#include <QtScript/QScriptContext>

namespace {
const QString gatedFunction = QStringLiteral("__holm_gated");
const QScriptValue::PropertyFlags hidden =
    QScriptValue::ReadOnly | QScriptValue::Undeletable | QScriptValue::SkipInEnumeration;
} // namespace

SignalGate::SignalGate(Application &application)
    : m_application(application)
{
}

void SignalGate::install()
{
    // Signals, like all native functions, inherit both from here.
    ScriptEngine &engine = m_application.engine();
    QScriptValue prototype =
        engine.globalObject().property(QStringLiteral("Function")).property(QStringLiteral("prototype"));
    for (const QString &name : {QStringLiteral("connect"), QStringLiteral("disconnect")}) {
        QScriptValue replacement = engine.newFunction(connectOrDisconnect, this);
        replacement.setData(prototype.property(name));
        prototype.setProperty(name, replacement, QScriptValue::SkipInEnumeration);
    }
}

QScriptValue SignalGate::connectOrDisconnect(QScriptContext *context, QScriptEngine *, void *gate)
{
    // signal.connect(function), or signal.connect(receiver, function or name)
    QScriptValueList arguments = argumentsOf(context);
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
    QScriptValue forwarder = m_application.engine().newFunction(forward, this);
    forwarder.setData(function);
    function.setProperty(gatedFunction, forwarder, hidden);
    return forwarder;
}

QScriptValue SignalGate::forward(QScriptContext *context, QScriptEngine *, void *gate)
{
    Application &application = static_cast<SignalGate *>(gate)->m_application;
    return application.callFunction(context->thisObject(), context->callee().data(), argumentsOf(context),
                                    true);
}
