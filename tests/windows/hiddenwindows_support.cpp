#include "contracts/hiddenwindows.h"

namespace contracts {

bool postTo(platform::Platform &platform, platform::WindowHandle window,
            const platform::WindowMessage &message)
{
    return platform.windows().post(window, message);
}

} // namespace contracts
