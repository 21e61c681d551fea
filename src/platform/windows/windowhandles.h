#pragma once

#include "platform/toplevelwindows.h"

#include <windows.h>

#include <limits>

// Handles of windows are pointers for the system, but have 32 bits also where pointers have 64.

namespace platform {

inline WindowHandle handleOf(HWND window)
{
    return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(window));
}

/// Null if there is no such window.
inline HWND windowOf(WindowHandle handle)
{
    if (handle > std::numeric_limits<std::uint32_t>::max())
        return nullptr;
    const auto number = static_cast<std::int32_t>(static_cast<std::uint32_t>(handle));
    const auto window = reinterpret_cast<HWND>(static_cast<std::intptr_t>(number));
    return IsWindow(window) ? window : nullptr;
}

} // namespace platform
