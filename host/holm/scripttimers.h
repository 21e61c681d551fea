#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtScript/QScriptValue>

#include <map>
#include <memory>

class CallQueue;
class QScriptContext;
class QScriptEngine;
class ScriptEngine;

/// setTimeout(), setInterval(), clearTimeout() and clearInterval() for scripts.
class ScriptTimers : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive the timers.
    ScriptTimers(ScriptEngine &engine, CallQueue &calls);

    /// Publishes the four functions as globals.
    void publish();

    bool isEmpty() const;

private:
    struct Timer
    {
        std::unique_ptr<QTimer> clock;
        QScriptValue function;
        QScriptValueList arguments;
        bool isWaiting = false;
    };

    template <bool repeats>
    static QScriptValue set(QScriptContext *context, QScriptEngine *engine, void *timers);
    static QScriptValue clear(QScriptContext *context, QScriptEngine *engine, void *timers);

    QScriptValue start(QScriptContext *context, bool repeats);
    void due(int id);
    void fire(int id);

    ScriptEngine &m_engine;
    CallQueue &m_calls;
    std::map<int, Timer> m_timers;
    int m_lastId = 0;
};
