#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

/// Ends a run that takes too long.
///
/// When the time is over, expired() is emitted on the GUI thread. If that thread is stuck in a script and
/// does not come to it, the process ends a moment later with ExitStatus::timedOut.
class Watchdog : public QObject
{
    Q_OBJECT

public:
    explicit Watchdog(std::chrono::milliseconds limit);
    ~Watchdog() override;

signals:
    void expired();

private:
    void guard(std::chrono::milliseconds limit);

    QTimer m_timer;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_done = false;
    std::thread m_thread;
};
