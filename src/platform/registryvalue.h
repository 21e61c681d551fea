#pragma once

#include "platform/registry.h"

namespace platform {

/// The text of a registry value up to its null or its end; nothing if there is no such value. Any thread.
inline std::optional<std::u16string> readText(RegistryKey &key, const std::u16string &name)
{
    const auto info = key.info(name);
    const auto bytes = info ? key.read(name, info->size) : std::nullopt;
    if (!bytes)
        return std::nullopt;
    std::u16string text;
    for (std::size_t i = 0; i + 1 < bytes->size(); i += 2) {
        const auto unit = static_cast<char16_t>((*bytes)[i] | (*bytes)[i + 1] << 8);
        if (unit == 0)
            break;
        text.push_back(unit);
    }
    return text;
}

} // namespace platform
