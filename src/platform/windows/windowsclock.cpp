#include "platform/windows/windowsclock.h"

#include "platform/windows/systemtime.h"
#include "platform/windows/widetext.h"

namespace platform {

namespace {

using Formatter = int WINAPI(LCID locale, DWORD flags, const SYSTEMTIME *time, const wchar_t *picture,
                             wchar_t *buffer, int capacity);

// Wine writes texts of more than 256 units past the end of a buffer of its own.
constexpr std::size_t longestPicture = 100;

std::optional<std::u16string> toText(Formatter *format, const SystemTime &time, const std::u16string &picture,
                                     int capacity)
{
    if (picture.size() > longestPicture)
        return std::nullopt;
    // A buffer of no capacity asks for the size that it should have, a null included.
    const SYSTEMTIME fields = toSystem(time);
    const int size = format(0, 0, &fields, wide(picture), nullptr, 0);
    if (size <= 0 || size > capacity)
        return std::nullopt;
    std::wstring text(static_cast<std::size_t>(size), L'\0');
    if (format(0, 0, &fields, wide(picture), text.data(), size) != size)
        return std::nullopt;
    text.pop_back();
    return utf16(text);
}

// Wine would take the 29th of any February, and show the 1st of March.
bool isDate(const SystemTime &time)
{
    const SYSTEMTIME fields{time.year, time.month, 0, time.day, 0, 0, 0, 0};
    FILETIME moment{};
    SYSTEMTIME found{};
    return SystemTimeToFileTime(&fields, &moment) && FileTimeToSystemTime(&moment, &found)
        && found.wDay == fields.wDay;
}

} // namespace

SystemTime WindowsClock::localTime()
{
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return fromSystem(now);
}

std::optional<std::u16string> WindowsClock::dateText(const SystemTime &time, const std::u16string &picture,
                                                     int capacity)
{
    return isDate(time) ? toText(GetDateFormatW, time, picture, capacity) : std::nullopt;
}

std::optional<std::u16string> WindowsClock::timeText(const SystemTime &time, const std::u16string &picture,
                                                     int capacity)
{
    return toText(GetTimeFormatW, time, picture, capacity);
}

} // namespace platform
