#include "platform/desktop/desktopsound.h"

namespace platform {

namespace {

constexpr std::int32_t succeeded = 0;
constexpr std::int32_t failed = -1;

} // namespace

DesktopSound::DesktopSound(HardwareState &hardware)
    : m_hardware(hardware)
{
}

std::int32_t DesktopSound::get(std::uint32_t event, SoundRecord &record)
{
    const auto type = event == allSounds ? m_hardware.sound() : std::nullopt;
    if (!type)
        return failed;
    record = SoundRecord();
    record.type = *type;
    return succeeded;
}

std::int32_t DesktopSound::set(std::uint32_t event, const SoundRecord &record, std::uint32_t)
{
    return event == allSounds && m_hardware.setSound(record.type) ? succeeded : failed;
}

} // namespace platform
