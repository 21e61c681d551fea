#include "platform/messagebox.h"

#include "contracts/backend.h"
#include "windows/resources.h"

#include <gmock/gmock.h>
#include <windows.h>

#include <thread>

namespace {

LRESULT CALLBACK closeAtOnce(int event, WPARAM window, LPARAM details)
{
    if (event == HCBT_ACTIVATE)
        PostMessageW(reinterpret_cast<HWND>(window), WM_CLOSE, 0, 0);
    return CallNextHookEx(nullptr, event, window, details);
}

} // namespace

TEST(MessageBoxTest, ShowsTextAndCaptionAndWaitsForTheUser)
{
    std::wstring said;
    int buttons = 0;
    std::thread user([&] {
        constexpr wchar_t dialogClass[] = L"#32770";
        HWND box = nullptr;
        EXPECT_TRUE(contracts::waitUntil([&] {
            box = FindWindowW(dialogClass, L"kestcmd's \u00e4 caption");
            return IsWindowVisible(box);
        }));
        constexpr int textControl = 0xffff;
        said.resize(100);
        said.resize(GetDlgItemTextW(box, textControl, said.data(), 100));
        for (HWND button = nullptr; (button = FindWindowExW(box, button, L"Button", nullptr));)
            ++buttons;
        PostMessageW(box ? box : FindWindowW(dialogClass, nullptr), WM_CLOSE, 0, 0);
    });
    contracts::makePlatform()->messageBox().show(u"a text\nof two lines", u"kestcmd's \u00e4 caption");
    user.join();
    EXPECT_EQ(said, L"a text\nof two lines");
    EXPECT_EQ(buttons, 1);
}

TEST(MessageBoxTest, LeavesNothingBehind)
{
    const auto platform = contracts::makePlatform();
    const HHOOK hook = SetWindowsHookExW(WH_CBT, closeAtOnce, nullptr, GetCurrentThreadId());
    ASSERT_TRUE(hook);
    constexpr int times = 200; // which take Wine up to 40 ms each
    expectNoLeak([&] { platform->messageBox().show(u"text", u"caption"); }, times);
    UnhookWindowsHookEx(hook);
}
