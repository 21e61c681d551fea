#pragma once

#include <QtCore/QObject>

#include <deque>
#include <functional>

/// Lets every script call run to completion: what comes due while one is in progress waits, and is
/// delivered in the order in which it came due once that call has returned, in shares short enough for input
/// and painting to get their turn. GUI thread only.
class CallQueue : public QObject
{
    Q_OBJECT

public:
    using Task = std::function<void()>;

    /// A script call in progress, for as long as the scope lives. Scopes nest.
    class Scope
    {
    public:
        explicit Scope(CallQueue &queue);
        ~Scope();
        Q_DISABLE_COPY(Scope)

    private:
        CallQueue &m_queue;
        const int m_outerLevel;
    };

    explicit CallQueue(QObject *parent = nullptr);

    /// Runs @p task at once if nothing is in progress or waiting, else when its turn comes.
    void deliver(Task task);

    /// Whether the caller is part of the call in progress, and not reached from an event loop nested
    /// inside it.
    bool isPartOfCall() const;

    /// Whether a call is in progress.
    bool isInCall() const;

    /// Nothing is in progress or waiting.
    bool isIdle() const;

    /// Drops what waits and takes nothing more: the run is ending.
    void close();

signals:
    /// The last call has returned and nothing waits.
    void idle();

private:
    void run(const Task &task);
    void scheduleDrain();
    void drain();

    std::deque<Task> m_waiting;
    int m_depth = 0;
    int m_loopLevel = 0;
    bool m_isDrainScheduled = false;
    bool m_closed = false;
};
