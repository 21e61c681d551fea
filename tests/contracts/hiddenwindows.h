#pragma once

#include "platform/hiddenwindows.h"
#include "platform/platform.h"

namespace contracts {

/// Puts a message into a hidden window's queue, as other programs do.
bool postTo(platform::Platform &platform, platform::WindowHandle window,
            const platform::WindowMessage &message);

} // namespace contracts
