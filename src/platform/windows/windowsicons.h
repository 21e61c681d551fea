#pragma once

#include "platform/icons.h"

namespace platform {

/// Icons as the shell takes them out of files: scaled to exactly the system's sizes, 32x32 and 16x16 pixels
/// as a rule. Wine makes the small one of the large one.
class WindowsIcons : public Icons
{
public:
    ExtractedIcons extract(const std::u16string &file, int index) override;
    int screenDensity() override;
};

} // namespace platform
