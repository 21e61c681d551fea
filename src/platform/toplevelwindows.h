#pragma once

#include "platform/picture.h"

#include <cstdint>
#include <functional>
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

/// The style bit of windows that stand inside others (WS_CHILD).
constexpr std::uint32_t childStyle = 0x40000000;

/// The top-level windows of all programs. GUI thread only.
class TopLevelWindows
{
public:
    virtual ~TopLevelWindows() = default;

    /// The window with exactly that title, but that letter case may not count (FindWindowW without a class
    /// name); nothing if there is none.
    virtual std::optional<WindowHandle> find(const std::u16string &title) = 0;

    /// Puts a message into the queue of the window's program and does not wait for an answer (PostMessageW),
    /// but perhaps a moment (a fifth of a second) for room in a full queue. False if it could not be
    /// delivered.
    virtual bool post(WindowHandle window, const WindowMessage &message) = 0;

    /// Calls @p take for each top-level window, the uppermost first, until it returns false (EnumWindows).
    /// Windows that come or go meanwhile may be left out, or told although they have gone.
    virtual void enumerate(const std::function<bool(WindowHandle)> &take) = 0;

    /// The window's style bits (GetWindowLongW, GWL_STYLE); 0 if it has gone.
    virtual std::uint32_t style(WindowHandle window) = 0;

    /// Whether there is still such a window (IsWindow).
    virtual bool exists(WindowHandle window) = 0;

    /// Whether the window is shown, be it behind others or minimised (IsWindowVisible).
    virtual bool isVisible(WindowHandle window) = 0;

    /// The window that a dialog belongs to (GetParent); nothing if it belongs to none.
    virtual std::optional<WindowHandle> parent(WindowHandle window) = 0;

    /// The window's title, cut so that it and a closing null fit into @p bufferLength UTF-16 units
    /// (GetWindowTextW). Empty if it has gone.
    virtual std::u16string title(WindowHandle window, int bufferLength) = 0;

    /// The absolute path of the program that the window belongs to, cut as title() is
    /// (GetWindowThreadProcessId, OpenProcess, GetModuleFileNameW). Empty if that cannot be found out.
    virtual std::u16string programFile(WindowHandle window, int bufferLength) = 0;

    /// What the window shows now, with every alpha value at its most (GetWindowRect, BitBlt). What others
    /// cover may come out as what covers it. Empty if the window is minimised, or cannot be read.
    virtual Picture snapshot(WindowHandle window) = 0;

    /// Brings the window to the front and gives it the keyboard (SetForegroundWindow). False if that was
    /// refused at once.
    virtual bool setForeground(WindowHandle window) = 0;

    /// Asks the window to close, as its user would (SendMessageW, WM_CLOSE), and waits until its program has
    /// handled that, where the system can tell.
    virtual void close(WindowHandle window) = 0;
};

} // namespace platform
