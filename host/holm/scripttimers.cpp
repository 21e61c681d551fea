#include "scripttimers.h"

#include "callqueue.h"
#include "scriptengine.h"

#include <QtScript/QScriptContext>

#include <algorithm>

ScriptTimers::ScriptTimers(ScriptEngine &engine, CallQueue &calls)
    : m_engine(engine)
    , m_calls(calls)
{
}

void ScriptTimers::publish()
{
    QScriptValue global = m_engine.globalObject();
    global.setProperty(QStringLiteral("setTimeout"), m_engine.newFunction(set<false>, this));
    global.setProperty(QStringLiteral("setInterval"), m_engine.newFunction(set<true>, this));
    global.setProperty(QStringLiteral("clearTimeout"), m_engine.newFunction(clear, this));
    global.setProperty(QStringLiteral("clearInterval"), m_engine.newFunction(clear, this));
}

bool ScriptTimers::isEmpty() const
{
    return m_timers.empty();
}

template <bool repeats>
QScriptValue ScriptTimers::set(QScriptContext *context, QScriptEngine *, void *timers)
{
    return static_cast<ScriptTimers *>(timers)->start(context, repeats);
}

QScriptValue ScriptTimers::clear(QScriptContext *context, QScriptEngine *, void *timers)
{
    auto &self = *static_cast<ScriptTimers *>(timers);
    self.m_timers.erase(context->argument(0).toInt32());
    return QScriptValue();
}

QScriptValue ScriptTimers::start(QScriptContext *context, bool repeats)
{
    if (!context->argument(0).isFunction())
        return context->throwError(QScriptContext::TypeError,
                                   QLatin1String(repeats ? "setInterval" : "setTimeout")
                                       + QLatin1String(": the first argument must be a function"));
    Timer timer{std::make_unique<QTimer>(), context->argument(0), argumentsOf(context, 2)};
    const int id = ++m_lastId;
    connect(timer.clock.get(), &QTimer::timeout, this, [this, id] { due(id); });
    timer.clock->setTimerType(Qt::PreciseTimer);
    timer.clock->setSingleShot(!repeats);
    timer.clock->start(std::max(context->argument(1).toInt32(), 0));
    m_timers.emplace(id, std::move(timer));
    return id;
}

void ScriptTimers::due(int id)
{
    Timer &timer = m_timers.at(id);
    // The ticks that an interval misses while a call is in progress are delivered as one.
    if (timer.isWaiting)
        return;
    timer.isWaiting = true;
    m_calls.deliver([this, id] { fire(id); });
}

void ScriptTimers::fire(int id)
{
    const auto found = m_timers.find(id);
    if (found == m_timers.end())
        return; // cleared while it waited
    found->second.isWaiting = false;
    const QScriptValue function = found->second.function;
    const QScriptValueList arguments = found->second.arguments;
    if (found->second.clock->isSingleShot())
        m_timers.erase(found);
    m_engine.call(QScriptValue(), function, arguments, true);
}
