#include "contracts/hiddenwindows.h"

#include "platform/desktop/desktophiddenwindows.h"

namespace contracts {

bool postTo(platform::Platform &platform, platform::WindowHandle window,
            const platform::WindowMessage &message)
{
    return dynamic_cast<platform::DesktopHiddenWindows &>(platform.hiddenWindows()).post(window, message);
}

} // namespace contracts
