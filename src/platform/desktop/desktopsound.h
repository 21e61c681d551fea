#pragma once

#include "platform/desktop/hardwarestate.h"
#include "platform/soundsettings.h"

namespace platform {

/// The sound profile of the simulated device. Knows one event, that for all sounds.
class DesktopSound : public SoundSettings
{
public:
    explicit DesktopSound(HardwareState &hardware);

    std::int32_t get(std::uint32_t event, SoundRecord &record) override;
    std::int32_t set(std::uint32_t event, const SoundRecord &record, std::uint32_t flags) override;

private:
    HardwareState &m_hardware;
};

} // namespace platform
