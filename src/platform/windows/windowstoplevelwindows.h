#pragma once

#include "platform/toplevelwindows.h"

namespace platform {

/// The windows of the system. Numbers that only have a special meaning to it, such as that of all windows,
/// are those of windows that have gone.
class WindowsTopLevelWindows : public TopLevelWindows
{
public:
    /// Whatever the letter case, as the system compares titles.
    std::optional<WindowHandle> find(const std::u16string &title) override;
    bool post(WindowHandle window, const WindowMessage &message) override;
    void enumerate(const std::function<bool(WindowHandle)> &take) override;
    std::uint32_t style(WindowHandle window) override;
    bool exists(WindowHandle window) override;
    bool isVisible(WindowHandle window) override;
    std::optional<WindowHandle> parent(WindowHandle window) override;

    /// A cut never leaves half of a surrogate pair.
    std::u16string title(WindowHandle window, int bufferLength) override;
    std::u16string programFile(WindowHandle window, int bufferLength) override;

    /// Has the size of the window with its frame, but begins inside the frame, as the windows of a device
    /// have none. Empty also if the window is hidden, or more than 8192 pixels wide or high.
    Picture snapshot(WindowHandle window) override;

    /// A minimised window stays minimised.
    bool setForeground(WindowHandle window) override;

    /// Waits for the window's program however long that takes.
    void close(WindowHandle window) override;
};

} // namespace platform
