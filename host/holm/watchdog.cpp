#include "watchdog.h"

#include "exitstatus.h"

#include <cstdio>
#include <cstdlib>

namespace {
constexpr std::chrono::seconds grace(2);
}

Watchdog::Watchdog(std::chrono::milliseconds limit)
    : m_thread(&Watchdog::guard, this, limit + grace)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &Watchdog::expired);
    m_timer.start(limit);
}

Watchdog::~Watchdog()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_done = true;
    }
    m_wake.notify_one();
    m_thread.join();
}

void Watchdog::guard(std::chrono::milliseconds limit)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_wake.wait_for(lock, limit, [this] { return m_done; }))
        return;
    std::fputs("holm: the time is over, and the script still runs; ended by force\n", stderr);
    std::_Exit(ExitStatus::timedOut);
}
