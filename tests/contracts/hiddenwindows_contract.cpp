#include "contracts/backend.h"
#include "contracts/hiddenwindows.h"

#include <gmock/gmock.h>

namespace {

using platform::WindowMessage;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t firstMessage = 0x8000; // below are the system's own

class HiddenWindowsContract : public testing::Test
{
protected:
    std::unique_ptr<platform::HiddenWindowClass> registerClass(const std::u16string &name)
    {
        return m_platform->hiddenWindows().registerClass(name, [this](const WindowMessage &message) {
            if (message.message < firstMessage)
                return false;
            EXPECT_EQ(message.wParam, 0xfffffffeU);
            EXPECT_EQ(message.lParam, -2);
            m_taken.push_back(message.message - firstMessage);
            if (m_taken.back() == 3)
                m_window.reset();
            if (m_taken.back() == 4) {
                m_window.reset();
                m_class.reset();
            }
            return m_taken.back() != 2;
        });
    }

    bool post(platform::WindowHandle window, std::uint32_t message)
    {
        return contracts::postTo(*m_platform, window, {firstMessage + message, 0xfffffffe, -2});
    }

    void expectTaken(std::size_t count)
    {
        EXPECT_TRUE(contracts::waitUntil([&] { return m_taken.size() >= count; }));
        contracts::processEvents();
    }

    const std::unique_ptr<platform::Platform> m_platform = contracts::makePlatform();
    std::unique_ptr<platform::HiddenWindowClass> m_class = registerClass(u"Class");
    std::unique_ptr<platform::HiddenWindow> m_window = m_class->createWindow();
    std::vector<std::uint32_t> m_taken;
};

} // namespace

TEST_F(HiddenWindowsContract, MessagesAreTakenInOrderFromTheEventLoop)
{
    const auto second = m_class->createWindow();
    const auto handle = m_window->handle();
    EXPECT_NE(handle, 0u);
    EXPECT_NE(handle, second->handle());
    for (const std::uint32_t message : {1u, 2u, 3u, 4u}) {
        EXPECT_TRUE(post(handle, message));
        EXPECT_TRUE(post(second->handle(), 10 * message));
    }
    EXPECT_THAT(m_taken, IsEmpty());
    expectTaken(7);
    EXPECT_THAT(m_taken, ElementsAre(1, 10, 2, 20, 3, 30, 40)) << "a window is gone with what waited for it";
    EXPECT_FALSE(post(handle, 1));
    EXPECT_FALSE(post(0, 1));
    EXPECT_NE(m_class->createWindow()->handle(), handle) << "a stale handle is nobody else's";
}

TEST_F(HiddenWindowsContract, ProceduresMayDestroyTheirWindowAndItsClass)
{
    EXPECT_TRUE(post(m_window->handle(), 4));
    expectTaken(1);
    EXPECT_FALSE(m_class);
    EXPECT_TRUE(registerClass(u"class"));
}

TEST_F(HiddenWindowsContract, OneClassHasAName)
{
    EXPECT_FALSE(registerClass(u"Class"));
    EXPECT_FALSE(registerClass(u"CLASS"));
    EXPECT_FALSE(registerClass(u""));
    EXPECT_FALSE(m_platform->hiddenWindows().registerClass(u"Other", nullptr));
}
