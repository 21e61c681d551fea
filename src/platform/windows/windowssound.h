#pragma once

#include "platform/soundsettings.h"
#include "platform/windows/latelibrary.h"

namespace platform {

/// The sound settings of a device. What the system does not have answers with E_NOTIMPL.
class WindowsSound : public SoundSettings
{
public:
    std::int32_t get(std::uint32_t event, SoundRecord &record) override;
    std::int32_t set(std::uint32_t event, const SoundRecord &record, std::uint32_t flags) override;

private:
    LateLibrary m_library{L"AYGSHELL.dll"};
};

} // namespace platform
