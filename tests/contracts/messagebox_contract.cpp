#include "contracts/backend.h"

#include "platform/messagebox.h"
#include "platform/toplevelwindows.h"

#include <gmock/gmock.h>

#include <set>
#include <thread>

TEST(MessageBoxContract, ShowsABoxFromAnyThread)
{
    const auto platform = contracts::makePlatform();
    platform::TopLevelWindows &windows = platform->windows();
    const auto shown = [&] {
        std::set<platform::WindowHandle> handles;
        windows.enumerate([&](platform::WindowHandle window) {
            if (windows.isVisible(window))
                handles.insert(window);
            return true;
        });
        return handles;
    };
    const auto before = shown();
    std::thread other([&] { platform->messageBox().show(u"text", u"caption"); });
    EXPECT_TRUE(contracts::waitUntil([&] { return shown().size() > before.size(); }));
    for (const platform::WindowHandle window : shown()) {
        if (before.count(window) == 0)
            windows.close(window);
    }
    other.join();
    EXPECT_TRUE(contracts::waitUntil([&] { return shown() == before; }));
}
