#include "platform/desktop/desktopwindows.h"

#include <gmock/gmock.h>

using platform::WindowHandle;

// Tried without an X server here, and without a window manager by the contracts.
TEST(WithoutDesktop, WindowsAreNoneAndFailQuietly)
{
    testing::internal::CaptureStderr();
    platform::DesktopWindows windows{platform::DeviceFolder(QString())};
    windows.enumerate([](WindowHandle window) {
        ADD_FAILURE() << window;
        return true;
    });
    for (const WindowHandle window :
         {WindowHandle(0), WindowHandle(0x7f000001), WindowHandle(1) << 32, ~WindowHandle(0)}) {
        EXPECT_EQ(windows.title(window, 254), u"") << window;
        EXPECT_EQ(windows.programFile(window, 1024), u"") << window;
        EXPECT_FALSE(windows.exists(window) || windows.isVisible(window)) << window;
        EXPECT_FALSE(windows.parent(window)) << window;
        EXPECT_EQ(windows.snapshot(window).width, 0) << window;
        EXPECT_FALSE(windows.setForeground(window)) << window;
        windows.close(window);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}
