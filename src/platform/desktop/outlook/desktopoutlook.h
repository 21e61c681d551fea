#pragma once

#include "platform/desktop/devicefolder.h"
#include "platform/pocketoutlook.h"

namespace platform {

class DesktopHiddenWindows;

/// Pocket Outlook on the simulated device's folders of files.
class DesktopOutlook : public PocketOutlook
{
public:
    /// Changes are posted to windows of @p windows, which has to live as long.
    DesktopOutlook(const DeviceFolder &device, DesktopHiddenWindows &windows);

    std::unique_ptr<IPOutlookApp> createApplication() override;

private:
    const DeviceFolder m_device;
    DesktopHiddenWindows &m_windows;
};

} // namespace platform
