#include "callqueue.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QThread>

namespace {
// How long calls that have waited may keep input and painting waiting, in milliseconds.
constexpr qint64 longestRound = 5;
} // namespace

CallQueue::Scope::Scope(CallQueue &queue)
    : m_queue(queue)
    , m_outerLevel(queue.m_loopLevel)
{
    ++m_queue.m_depth;
    m_queue.m_loopLevel = QThread::currentThread()->loopLevel();
}

CallQueue::Scope::~Scope()
{
    m_queue.m_loopLevel = m_outerLevel;
    if (--m_queue.m_depth > 0)
        return;
    m_queue.scheduleDrain();
    if (m_queue.isIdle())
        emit m_queue.idle();
}

CallQueue::CallQueue(QObject *parent)
    : QObject(parent)
{
}

void CallQueue::deliver(Task task)
{
    if (m_closed)
        return;
    if (isIdle()) {
        run(task);
        return;
    }
    m_waiting.push_back(std::move(task));
}

bool CallQueue::isPartOfCall() const
{
    return m_depth > 0 && QThread::currentThread()->loopLevel() == m_loopLevel;
}

bool CallQueue::isInCall() const
{
    return m_depth > 0;
}

bool CallQueue::isIdle() const
{
    return m_depth == 0 && m_waiting.empty();
}

void CallQueue::close()
{
    m_closed = true;
    m_waiting.clear();
}

void CallQueue::run(const Task &task)
{
    const Scope scope(*this);
    task();
}

void CallQueue::scheduleDrain()
{
    if (m_waiting.empty() || m_isDrainScheduled)
        return;
    m_isDrainScheduled = true;
    // From the event loop: a signal handler that made the call may still be running.
    QMetaObject::invokeMethod(this, &CallQueue::drain, Qt::QueuedConnection);
}

void CallQueue::drain()
{
    m_isDrainScheduled = false;
    // What a task adds has to wait for the next round, so that input and painting get their turn.
    QElapsedTimer round;
    round.start();
    for (std::size_t left = m_waiting.size();
         left > 0 && m_depth == 0 && !m_waiting.empty() && round.elapsed() < longestRound; --left) {
        const Task task = std::move(m_waiting.front());
        m_waiting.pop_front();
        run(task);
    }
    if (m_depth == 0)
        scheduleDrain();
}
