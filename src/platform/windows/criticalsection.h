#pragma once

#include <windows.h>

namespace platform {

/// Lets one thread at a time do something.
class CriticalSection
{
public:
    CriticalSection() { InitializeCriticalSection(&m_section); }
    ~CriticalSection() { DeleteCriticalSection(&m_section); }
    CriticalSection(const CriticalSection &) = delete;
    CriticalSection &operator=(const CriticalSection &) = delete;

    /// Waits until no other thread has one, and keeps them out while it lives.
    class Lock
    {
    public:
        explicit Lock(CriticalSection &section)
            : m_section(section.m_section)
        {
            EnterCriticalSection(&m_section);
        }
        ~Lock() { LeaveCriticalSection(&m_section); }
        Lock(const Lock &) = delete;
        Lock &operator=(const Lock &) = delete;

    private:
        CRITICAL_SECTION &m_section;
    };

private:
    CRITICAL_SECTION m_section;
};

} // namespace platform
