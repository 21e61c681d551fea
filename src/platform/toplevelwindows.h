#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace platform {

/// Names a top-level window of any process. A window that has gone makes operations fail, nothing worse.
using WindowHandle = std::uint64_t;

/// A window message and its two parameters.
struct WindowMessage
{
    std::uint32_t message = 0;
    std::uint64_t wParam = 0;
    std::int64_t lParam = 0;
};

/// The number of the message that tells a window of a chosen command (WM_COMMAND).
constexpr std::uint32_t commandMessage = 0x0111;

/// The top-level windows of all programs. GUI thread only.
class TopLevelWindows
{
public:
    virtual ~TopLevelWindows() = default;

    /// The window with exactly that title (FindWindowW without a class name); nothing if there is none.
    virtual std::optional<WindowHandle> find(const std::u16string &title) = 0;

    /// Puts a message into the queue of the window's program and does not wait for an answer (PostMessageW),
    /// but perhaps a moment (a fifth of a second) for room in a full queue. False if it could not be
    /// delivered.
    virtual bool post(WindowHandle window, const WindowMessage &message) = 0;
};

} // namespace platform
