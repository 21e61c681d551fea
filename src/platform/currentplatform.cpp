// The one place that chooses a back end.

#include "platform/platform.h"

#if defined(_WIN32)
#include "platform/windows/windowsplatform.h"
using BackEnd = platform::WindowsPlatform;
#else
#include "platform/desktop/desktopplatform.h"
using BackEnd = platform::DesktopPlatform;
#endif

namespace platform {

namespace {
std::unique_ptr<Platform> &installed()
{
    static std::unique_ptr<Platform> platform;
    return platform;
}
} // namespace

Platform &current()
{
    if (!installed())
        install(std::make_unique<BackEnd>());
    return *installed();
}

void install(std::unique_ptr<Platform> platform)
{
    installed() = std::move(platform);
}

} // namespace platform
