#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace platform {

/// The sound event that stands for all sounds.
constexpr std::uint32_t allSounds = 0;

/// Flag: change a setting without any user interface.
constexpr std::uint32_t withoutUserInterface = 1;

enum class SoundType : std::int32_t {
    On = 0,
    File = 1,
    Vibrate = 2,
    None = 3,
};

constexpr std::size_t soundTextLength = 260;

/// The setting of a sound event, laid out as the system's own record. The texts end with a null.
struct SoundRecord
{
    std::array<char16_t, soundTextLength> pathName{};
    std::array<char16_t, soundTextLength> displayName{};
    SoundType type = SoundType::On;
};
static_assert(sizeof(SoundRecord) == 1044, "the system reads and writes records of this size");

/// The sound settings (AYGSHELL.dll). GUI thread only.
class SoundSettings
{
public:
    virtual ~SoundSettings() = default;

    /// Reads the setting of an event (ordinal 390). A negative result is a failure, and leaves @p record
    /// alone.
    virtual std::int32_t get(std::uint32_t event, SoundRecord &record) = 0;

    /// Writes the setting of an event (ordinal 389). A negative result is a failure.
    virtual std::int32_t set(std::uint32_t event, const SoundRecord &record, std::uint32_t flags) = 0;
};

} // namespace platform
