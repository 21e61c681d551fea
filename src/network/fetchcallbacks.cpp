#include "network/fetchcallbacks.h"

#include "orvanecore/iapplication.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QEvent>

namespace {

// Many outcomes may have come meanwhile. Input and painting get their turn between two shares of them.
constexpr qint64 longestShare = 5; // milliseconds

/// Builds what a script is called with.
class ScriptArguments
{
public:
    explicit ScriptArguments(IApplication &application)
        : m_application(application)
    {
    }

    QScriptValueList operator()(const FetchFailure &failure) const { return {true, failure.message}; }

    QScriptValueList operator()(const QString &text) const { return {false, text}; }

    QScriptValueList operator()(const RssFeed &feed) const
    {
        QScriptValue items = m_application.newArray(0);
        quint32 count = 0;
        for (const RssItem &item : feed.items) {
            QScriptValue object = m_application.newObject();
            if (item.title)
                object.setProperty(QStringLiteral("title"), *item.title);
            if (item.description)
                object.setProperty(QStringLiteral("description"), *item.description);
            items.setProperty(count++, object);
        }
        return {false, items, feed.title};
    }

    QScriptValueList operator()(const WeatherReport &report) const
    {
        QScriptValue object = m_application.newObject();
        for (const WeatherValue &value : report)
            object.setProperty(value.property, m_application.toScriptValue(value.value));
        return {false, object};
    }

private:
    IApplication &m_application;
};

} // namespace

FetchCallbacks::FetchCallbacks(IApplication &application)
    : m_application(application)
{
}

FetchId FetchCallbacks::add(const QScriptValue &thisObject, const QScriptValue &callback)
{
    m_callbacks.emplace(++m_lastFetch, Callback{thisObject, callback});
    return m_lastFetch;
}

bool FetchCallbacks::isEmpty() const
{
    return m_callbacks.empty();
}

void FetchCallbacks::post(FetchOutcome outcome)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_posted.push_back(std::move(outcome));
    wake();
}

void FetchCallbacks::finish()
{
    while (deliverNext()) { }
    m_callbacks.clear();
}

void FetchCallbacks::customEvent(QEvent *)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isWoken = false;
    }
    QElapsedTimer share;
    share.start();
    while (deliverNext()) {
        if (share.elapsed() < longestShare)
            continue;
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (!m_posted.empty())
            wake();
        return;
    }
}

void FetchCallbacks::wake()
{
    // Qt would deliver several events in one go, and so several shares.
    if (m_isWoken)
        return;
    m_isWoken = true;
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

bool FetchCallbacks::deliverNext()
{
    FetchOutcome outcome;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_posted.empty())
            return false;
        outcome = std::move(m_posted.front());
        m_posted.pop_front();
    }
    deliver(outcome);
    return true;
}

void FetchCallbacks::deliver(const FetchOutcome &outcome)
{
    const auto found = m_callbacks.find(outcome.fetch);
    if (found == m_callbacks.end())
        return;
    const Callback callback = found->second;
    // Before the call: after its last one a host may ask whether anything is left to wait for.
    if (outcome.isLast)
        m_callbacks.erase(found);
    m_application.callFunction(callback.thisObject, callback.function,
                               std::visit(ScriptArguments(m_application), outcome.result), true);
}
