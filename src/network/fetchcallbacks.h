#pragma once

#include "network/fetch.h"

#include <QtCore/QObject>
#include <QtScript/QScriptValue>

#include <deque>
#include <mutex>
#include <unordered_map>

class IApplication;

/// The callbacks of all fetches in progress. Script values stay on the GUI thread, here; the network thread
/// knows a fetch by its number and posts what comes of it.
class FetchCallbacks : public QObject
{
    Q_OBJECT

public:
    /// @p application has to outlive this object.
    explicit FetchCallbacks(IApplication &application);

    /// Keeps a callback and its object for a new fetch.
    FetchId add(const QScriptValue &thisObject, const QScriptValue &callback);

    /// No fetch is in progress.
    bool isEmpty() const;

    /// Has the script told, from the GUI thread's event loop and after all that was posted before. Any
    /// thread.
    void post(FetchOutcome outcome);

    /// Tells scripts all that was posted, at once, and forgets the fetches that are left: nothing more will
    /// come.
    void finish();

protected:
    void customEvent(QEvent *event) override;

private:
    struct Callback
    {
        QScriptValue thisObject;
        QScriptValue function;
    };

    void wake();
    bool deliverNext();
    void deliver(const FetchOutcome &outcome);

    IApplication &m_application;
    std::unordered_map<FetchId, Callback> m_callbacks;
    FetchId m_lastFetch = 0;
    std::mutex m_mutex; ///< guards what follows
    std::deque<FetchOutcome> m_posted;
    bool m_isWoken = false; ///< an event is on its way
};
