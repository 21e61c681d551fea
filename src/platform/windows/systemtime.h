#pragma once

#include "platform/clock.h"

#include <windows.h>

namespace platform {

inline SYSTEMTIME toSystem(const SystemTime &time)
{
    return {time.year, time.month,  time.dayOfWeek, time.day,
            time.hour, time.minute, time.second,    time.milliseconds};
}

inline SystemTime fromSystem(const SYSTEMTIME &time)
{
    return {time.wYear, time.wMonth,  time.wDayOfWeek, time.wDay,
            time.wHour, time.wMinute, time.wSecond,    time.wMilliseconds};
}

} // namespace platform
