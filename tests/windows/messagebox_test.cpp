#include "platform/messagebox.h"

#include "contracts/backend.h"
#include "windows/resources.h"

#include <gmock/gmock.h>
#include <windows.h>

namespace {

HWND box = nullptr;
std::wstring said;
int buttons = 0;

/// Looks at the box that comes up, and closes it.
LRESULT CALLBACK beTheUser(int event, WPARAM window, LPARAM details)
{
    constexpr int textControl = 0xffff;
    const HWND active = reinterpret_cast<HWND>(window);
    if (event == HCBT_ACTIVATE && GetDlgItem(active, textControl)) {
        box = active;
        wchar_t caption[100] = {};
        wchar_t text[100] = {};
        GetWindowTextW(box, caption, 100);
        GetDlgItemTextW(box, textControl, text, 100);
        said = std::wstring(caption) + L": " + text;
        buttons = 0;
        for (HWND button = nullptr; (button = FindWindowExW(box, button, L"Button", nullptr));)
            ++buttons;
        PostMessageW(box, WM_CLOSE, 0, 0);
    }
    return CallNextHookEx(nullptr, event, window, details);
}

} // namespace

TEST(MessageBoxTest, WaitsForTheUserAndLeavesNothingBehind)
{
    const auto platform = contracts::makePlatform();
    const HHOOK hook = SetWindowsHookExW(WH_CBT, beTheUser, nullptr, GetCurrentThreadId());
    ASSERT_TRUE(hook);
    const auto show = [&] { platform->messageBox().show(u"a text\nof two lines", u"a \u00e4 caption"); };
    show();
    EXPECT_EQ(said, L"a \u00e4 caption: a text\nof two lines");
    EXPECT_EQ(buttons, 1);
    EXPECT_FALSE(IsWindow(box));
    constexpr int times = 200; // which take Wine up to 40 ms each
    expectNoLeak(show, times);
    UnhookWindowsHookEx(hook);
}
