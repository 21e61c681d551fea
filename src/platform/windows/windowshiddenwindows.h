#pragma once

#include "platform/hiddenwindows.h"

namespace platform {

/// Hidden windows of the system, so that it sends them messages of its own, too. The event loop has to be one
/// that takes messages for all windows of its thread.
class WindowsHiddenWindows : public HiddenWindows
{
public:
    std::unique_ptr<HiddenWindowClass> registerClass(const std::u16string &name,
                                                     WindowProcedure procedure) override;
};

} // namespace platform
