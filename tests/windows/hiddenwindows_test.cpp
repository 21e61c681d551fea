#include "contracts/hiddenwindows.h"

#include "platform/windows/library.h"
#include "platform/windows/windowhandles.h"
#include "platform/windows/windowshiddenwindows.h"
#include "windows/calllog.h"
#include "windows/resources.h"

#include <gmock/gmock.h>

bool contracts::postTo(platform::Platform &platform, platform::WindowHandle window,
                       const platform::WindowMessage &message)
{
    return platform.windows().post(window, message);
}

namespace {

bool takesNothing(const platform::WindowMessage &)
{
    return false;
}

} // namespace

TEST(WindowsHiddenWindows, AreOfAClassOfTheLibraryThatMakesThem)
{
    libraries::useStandIns();
    const platform::Library library(L"windowowner.dll");
    const HMODULE module = GetModuleHandleW(L"windowowner.dll");
    ASSERT_TRUE(module);
    const HWND window = library.find<HWND(const char16_t *)>(L"openWindow")(u"Owned");
    EXPECT_EQ(GetWindowLongPtrW(window, GWLP_HINSTANCE), reinterpret_cast<LONG_PTR>(module));
    EXPECT_FALSE(IsWindowVisible(window) || GetParent(window) || GetWindowTextLengthW(window) > 0);
    WNDCLASSW description{};
    EXPECT_TRUE(GetClassInfoW(module, L"Owned", &description));
    EXPECT_EQ(description.style, static_cast<UINT>(CS_HREDRAW | CS_VREDRAW));
    EXPECT_EQ(description.hbrBackground, GetStockObject(HOLLOW_BRUSH));
    EXPECT_FALSE(description.hIcon || description.hCursor || description.lpszMenuName);
    EXPECT_FALSE(GetClassInfoW(GetModuleHandleW(nullptr), L"Owned", &description));
    library.find<void()>(L"closeWindow")();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(GetClassInfoW(module, L"Owned", &description)) << "it can be unloaded";
}

TEST(WindowsHiddenWindows, SurviveThatOthersCloseThem)
{
    platform::WindowsHiddenWindows windows;
    const auto windowClass = windows.registerClass(u"Class", takesNothing);
    auto window = windowClass->createWindow();
    const HWND handle = platform::windowOf(window->handle());
    SendMessageW(handle, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(handle));
    window.reset();
    EXPECT_TRUE(windowClass->createWindow());
}

TEST(WindowsHiddenWindows, LeaveNothingBehind)
{
    platform::WindowsHiddenWindows windows;
    expectNoLeak([&] { EXPECT_TRUE(windows.registerClass(u"Class", takesNothing)); });
    const auto windowClass = windows.registerClass(u"Class", takesNothing);
    constexpr int windowCount = 1000; // each of which takes Wine up to 12 ms
    expectNoLeak(
        [&] {
            const auto window = windowClass->createWindow();
            EXPECT_TRUE(PostMessageW(platform::windowOf(window->handle()), WM_APP, 0, 0));
        },
        windowCount);
}
