#pragma once

#include <QtScript/QScriptValue>

class Application;
class QScriptContext;
class QScriptEngine;

/// Makes script functions that are connected to signals of QObjects keep the order of script calls.
///
/// The engine calls such a function straight from the signal, also from within a dialog that another
/// script call has open. The gate replaces connect() and disconnect() of signals, so that
/// the function waits for its turn and its exceptions are reported as everywhere.
class SignalGate
{
public:
    /// Must live until the application's last script call.
    explicit SignalGate(Application &application);

    void install();

private:
    static QScriptValue connectOrDisconnect(QScriptContext *context, QScriptEngine *engine, void *gate);
    static QScriptValue forward(QScriptContext *context, QScriptEngine *engine, void *gate);
    QScriptValue gated(QScriptValue function);

    Application &m_application;
};
