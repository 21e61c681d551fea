#pragma once

#include "platform/registry.h"

#include <windows.h>

namespace platform {

/// The type of a value, and its data.
struct RegistryData
{
    std::uint32_t type = RegistryType::none;
    RegistryBytes bytes;

    bool operator==(const RegistryData &other) const { return type == other.type && bytes == other.bytes; }
};

/// Values may have so many bytes; larger ones are hardly meant.
constexpr std::uint32_t largestValue = 0x4000000;

/// Nothing if there is no such value, or it has more than @p limit bytes.
std::optional<RegistryData> readData(HKEY key, const std::u16string &name, std::uint32_t limit);

} // namespace platform
