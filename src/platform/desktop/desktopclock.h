#pragma once

#include "platform/clock.h"

namespace platform {

/// The machine's clock, and texts in the language of the default locale. Years are 1601 to 30827. An era (g)
/// is an empty text, y is the same as yy, and a longer run of a letter is as its longest.
class DesktopClock : public Clock
{
public:
    SystemTime localTime() override;
    std::optional<std::u16string> dateText(const SystemTime &time, const std::u16string &picture,
                                           int capacity) override;
    std::optional<std::u16string> timeText(const SystemTime &time, const std::u16string &picture,
                                           int capacity) override;
};

} // namespace platform
