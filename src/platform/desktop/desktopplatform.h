#pragma once

#include "platform/desktop/desktopshell.h"
#include "platform/desktop/devicefolder.h"
#include "platform/platform.h"

namespace platform {

/// The back end for a Linux desktop: a simulated handheld kept in DeviceFolder::current().
class DesktopPlatform : public Platform
{
public:
    DesktopPlatform();

    Shell &shell() override;

private:
    const DeviceFolder m_device;
    DesktopShell m_shell;
};

} // namespace platform
