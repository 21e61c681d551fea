#pragma once

#include "platform/clock.h"

namespace platform {

/// The system's clock, and texts in the language that the user has chosen in the system's settings. A
/// picture of more than 100 units has no text.
class WindowsClock : public Clock
{
public:
    SystemTime localTime() override;
    std::optional<std::u16string> dateText(const SystemTime &time, const std::u16string &picture,
                                           int capacity) override;
    std::optional<std::u16string> timeText(const SystemTime &time, const std::u16string &picture,
                                           int capacity) override;
};

} // namespace platform
