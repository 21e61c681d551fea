#include "platform/desktop/desktopplatform.h"

namespace platform {

DesktopPlatform::DesktopPlatform()
    : m_device(DeviceFolder::current())
    , m_shell(m_device)
{
}

Shell &DesktopPlatform::shell()
{
    return m_shell;
}

} // namespace platform
