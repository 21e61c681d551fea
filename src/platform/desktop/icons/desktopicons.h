#pragma once

#include "platform/desktop/devicefolder.h"
#include "platform/icons.h"

namespace platform {

/// The icons in the programs, libraries and icon files of the simulated device.
class DesktopIcons : public Icons
{
public:
    explicit DesktopIcons(const DeviceFolder &device);

    ExtractedIcons extract(const std::u16string &file, int index) override;
    int screenDensity() override;

private:
    const DeviceFolder m_device;
};

} // namespace platform
