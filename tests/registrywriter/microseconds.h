#pragma once

#include <chrono>
#include <cstdint>

/// A time that all processes of the machine share, in microseconds. Starts again after 71 minutes.
inline std::uint32_t microseconds()
{
    return static_cast<std::uint32_t>(std::chrono::duration_cast<std::chrono::microseconds>(
                                          std::chrono::steady_clock::now().time_since_epoch())
                                          .count());
}
