#pragma once

#include <ctime>

/// How long processors have worked on something, however busy the machine is with other things.
class ProcessorTime
{
public:
    enum class Of { Process = CLOCK_PROCESS_CPUTIME_ID, Thread = CLOCK_THREAD_CPUTIME_ID };

    explicit ProcessorTime(Of of = Of::Process)
        : m_clock(static_cast<clockid_t>(of))
        , m_start(now())
    {
    }

    /// Of this process, or of the thread that asks.
    double seconds() const { return now() - m_start; }

private:
    double now() const
    {
        timespec time{};
        clock_gettime(m_clock, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
    }

    clockid_t m_clock;
    double m_start;
};
