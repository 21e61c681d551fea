#pragma once

#include "platform/picture.h"

/// The same for pictures that look the same: colours that are not seen do not count.
inline std::uint64_t digestOf(const platform::Picture &picture)
{
    std::uint64_t digest = 0xcbf29ce484222325; // FNV-1a, by pixels
    for (const std::uint32_t pixel : picture.pixels)
        digest = (digest ^ (pixel >> 24 == 0 ? 0 : pixel)) * 0x100000001b3;
    return digest;
}
