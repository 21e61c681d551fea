#include "platform/desktop/desktophiddenwindows.h"

#include <QtCore/QCoreApplication>
#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

TEST(HiddenWindows, TakeMessagesInOrderFromTheEventLoop)
{
    platform::DesktopHiddenWindows windows;
    std::vector<int> taken;
    std::unique_ptr<platform::HiddenWindow> first;
    const auto note = [&](const platform::WindowMessage &message) {
        taken.push_back(static_cast<int>(message.message));
        if (message.message == 3)
            first.reset();
        return message.message != 2;
    };
    auto windowClass = windows.registerClass(u"Class", note);
    ASSERT_TRUE(windowClass);
    EXPECT_FALSE(windows.registerClass(u"CLASS", note));
    first = windowClass->createWindow();
    auto second = windowClass->createWindow();
    const auto handle = first->handle();
    EXPECT_NE(handle, 0u);
    EXPECT_NE(handle, second->handle());
    for (const std::uint32_t message : {1u, 2u, 3u, 4u}) {
        EXPECT_TRUE(windows.post(handle, {message, 0, 0}));
        EXPECT_TRUE(windows.post(second->handle(), {10 * message, 0, 0}));
    }
    EXPECT_THAT(taken, IsEmpty());
    QCoreApplication::processEvents();
    EXPECT_THAT(taken, ElementsAre(1, 10, 2, 20, 3, 30, 40)) << "a window is gone with what waited for it";
    EXPECT_FALSE(windows.post(handle, {1, 0, 0}));
    EXPECT_FALSE(windows.post(0, {1, 0, 0}));
    EXPECT_NE(windowClass->createWindow()->handle(), handle) << "a stale handle is nobody else's";

    EXPECT_TRUE(windows.post(second->handle(), {5, 0, 0}));
    second.reset();
    windowClass.reset();
    EXPECT_TRUE(windows.registerClass(u"class", note));
    QCoreApplication::processEvents();
    EXPECT_EQ(taken.size(), 7u);
}
