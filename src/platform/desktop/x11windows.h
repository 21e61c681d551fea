#pragma once

#include "platform/toplevelwindows.h"

namespace platform {

/// The windows of an X11 desktop, as its window manager lists them; handles are the numbers that X11 gives.
/// Without X11 or a window manager there are none, and every other handle is that of a window that has gone.
/// Nothing is remembered: each operation asks the X server, so none needs the event loop to turn.
class X11Windows : public TopLevelWindows
{
public:
    /// Leaves out the windows that the desktop itself consists of: its background and its panels.
    void enumerate(const std::function<bool(WindowHandle)> &take) override;

    /// Always 0, as an X11 window is listed only if it stands in no other.
    std::uint32_t style(WindowHandle window) override;

    bool exists(WindowHandle window) override;
    bool isVisible(WindowHandle window) override;

    /// The window that this one is transient for.
    std::optional<WindowHandle> parent(WindowHandle window) override;

    /// "HOLM" for the windows of this process: the device knows its host by that name, whatever the frames
    /// say. A cut never leaves half of a surrogate pair.
    std::u16string title(WindowHandle window, int bufferLength) override;

    /// Empty for programs of other machines or of other users.
    std::u16string programFile(WindowHandle window, int bufferLength) override;

    /// Without the frame; black where the window reaches beyond the screen. Empty also if the window is on
    /// another virtual desktop or wholly beyond the screen, or more than 8192 pixels wide or high.
    Picture snapshot(WindowHandle window) override;

    /// The window manager shows a minimised window again, and changes to the window's virtual desktop.
    bool setForeground(WindowHandle window) override;

    /// Does not wait for the window's program, which may ask its user first; but the request is out even if
    /// this process ends now.
    void close(WindowHandle window) override;
};

} // namespace platform
