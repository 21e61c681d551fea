#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace platform {

/// A date and a time of day as the system writes it (SYSTEMTIME). Months and days count from 1, days of the
/// week from Sunday, which is 0.
struct SystemTime
{
    std::uint16_t year = 0;
    std::uint16_t month = 0;
    std::uint16_t dayOfWeek = 0;
    std::uint16_t day = 0;
    std::uint16_t hour = 0;
    std::uint16_t minute = 0;
    std::uint16_t second = 0;
    std::uint16_t milliseconds = 0;
};

/// The system's clock, and dates and times as texts. Any thread.
class Clock
{
public:
    virtual ~Clock() = default;

    /// Now, in the time zone of the device (GetLocalTime).
    virtual SystemTime localTime() = 0;

    /// The date as @p picture shows it, in the user's language (GetDateFormatW with locale 0, flags 0 and a
    /// buffer of @p capacity characters). Pictures are made of d, dd, ddd, dddd, M to MMMM, y, yy, yyyy, and
    /// of other text, which may stand in single quotes; two of them are one quote. The day of the week is
    /// worked out, not taken from @p time. Nothing if there is no such date, or if the text and a terminating
    /// null are longer than @p capacity, and perhaps nothing if the picture has more than 100 characters.
    virtual std::optional<std::u16string> dateText(const SystemTime &time, const std::u16string &picture,
                                                   int capacity) = 0;

    /// The time of day likewise (GetTimeFormatW). Pictures are made of h, hh, H, HH, m, mm, s, ss, t, tt.
    virtual std::optional<std::u16string> timeText(const SystemTime &time, const std::u16string &picture,
                                                   int capacity) = 0;
};

} // namespace platform
