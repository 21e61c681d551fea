#include "contracts/texts.h"
#include "contracts/toplevelwindows.h"

#include <algorithm>
#include <climits>

namespace {

using contracts::shown;
using platform::WindowHandle;
using testing::ElementsAre;

constexpr int titleLength = 254;

using TopLevelWindowsContract = contracts::TopLevelWindowsTest;

} // namespace

TEST_F(TopLevelWindowsContract, EachWindowIsTold)
{
    struct Case
    {
        std::u16string kind;
        std::u16string title;
        std::u16string told;
        std::u16string parent;
        int width;
    };
    const std::u16string whole(titleLength - 1, u'a');
    const std::u16string halved(titleLength - 2, u'b');
    const Case cases[] = {
        {u"huge", u"huge", u"huge", u"", 0},
        {u"dialog", u"Really?", u"Really?", u"huge", 91}, // always above the window that it belongs to
        {u"window", u"one", u"one", u"", 91},
        {u"minimized", u"small", u"small", u"", 0},
        {u"window", u"Gr\u00fc\u00dfe \u6f22\u5b57 \U0001f600", u"Gr\u00fc\u00dfe \u6f22\u5b57 \U0001f600",
         u"", 91},
        {u"window", whole + u"more", whole, u"", 91},
        {u"window", halved + u"\U0001f600", halved, u"", 91},
    };
    std::vector<std::u16string> windows;
    for (const Case &row : cases)
        windows.insert(windows.end(), {row.kind, row.title});
    open(windows);
    for (const Case &row : cases) {
        const WindowHandle window = windowOf(row.title);
        EXPECT_EQ(shown(m_windows.title(window, titleLength)), shown(row.told));
        EXPECT_TRUE(m_windows.exists(window)) << shown(row.title);
        EXPECT_EQ(m_windows.style(window) & platform::childStyle, 0u) << shown(row.title);
        EXPECT_EQ(m_windows.parent(window).value_or(0), row.parent.empty() ? 0 : windowOf(row.parent))
            << shown(row.title);
        if (row.width > 0) {
            EXPECT_TRUE(m_windows.setForeground(window)) << shown(row.title);
            EXPECT_TRUE(contracts::waitUntil([&] { return isDrawn(window, row.width, 61); }))
                << shown(row.title);
        } else {
            EXPECT_THAT(m_windows.snapshot(window).pixels, testing::IsEmpty()) << shown(row.title);
        }
    }
    int told = 0;
    m_windows.enumerate([&](WindowHandle) { return ++told < 3; });
    EXPECT_EQ(told, 3);
}

TEST_F(TopLevelWindowsContract, TextsFitIntoBuffersOfAnyLength)
{
    open({u"window", u"title"});
    const WindowHandle window = windowOf(u"title");
    for (const int length : {INT_MIN, -1, 0, 1, 2, 5, 6, 7, INT_MAX}) {
        const auto fitting = static_cast<std::size_t>(std::max(1, length) - 1);
        EXPECT_EQ(shown(m_windows.title(window, length)), shown(std::u16string(u"title").substr(0, fitting)));
        EXPECT_EQ(shown(m_windows.programFile(window, length)), shown(m_opener->file().substr(0, fitting)));
    }
}

TEST_F(TopLevelWindowsContract, WindowsComeToTheFrontAndClose)
{
    open({u"window", u"one", u"window", u"two", u"window", u"three"});
    for (const char16_t *title : {u"one", u"three", u"two"}) {
        EXPECT_TRUE(m_windows.setForeground(windowOf(title)));
        EXPECT_TRUE(m_opener->tells("active " + shown(std::u16string(title))));
    }
    for (const char16_t *title : {u"one", u"three", u"two"}) {
        const WindowHandle window = windowOf(title);
        m_windows.close(window);
        EXPECT_TRUE(m_opener->tells("closed " + shown(std::u16string(title))));
        EXPECT_TRUE(contracts::waitUntil([&] { return !m_windows.exists(window); }));
    }
}

TEST_F(TopLevelWindowsContract, WindowsThatAreNoneDoNothing)
{
    open({u"window", u"gone", u"window", u"stays"});
    const WindowHandle gone = windowOf(u"gone");
    const WindowHandle stays = windowOf(u"stays");
    m_windows.close(gone);
    EXPECT_TRUE(contracts::waitUntil([&] { return !m_windows.exists(gone); }));
    constexpr WindowHandle highPart = WindowHandle(1) << 32;
    for (const WindowHandle window :
         {gone, WindowHandle(0), WindowHandle(0xffff), WindowHandle(0x7f000001), WindowHandle(0xffffffff),
          highPart, stays + highPart, ~WindowHandle(0)}) {
        EXPECT_FALSE(m_windows.exists(window)) << window;
        EXPECT_FALSE(m_windows.isVisible(window)) << window;
        EXPECT_EQ(m_windows.style(window), 0u) << window;
        EXPECT_FALSE(m_windows.parent(window)) << window;
        EXPECT_EQ(shown(m_windows.title(window, titleLength)), "") << window;
        EXPECT_EQ(shown(m_windows.programFile(window, 1024)), "") << window;
        EXPECT_EQ(m_windows.snapshot(window).width, 0) << window;
        EXPECT_FALSE(m_windows.setForeground(window)) << window;
        EXPECT_FALSE(m_windows.post(window, {platform::commandMessage, 1, 0})) << window;
        m_windows.close(window);
    }
    contracts::processEvents();
    EXPECT_THAT(listed(), ElementsAre(stays));
}

TEST_F(TopLevelWindowsContract, MessagesReachTheWindowOfThatTitle)
{
    auto target = contracts::makeTarget(u"Some target");
    const auto window = target->windows().find(u"Some target");
    ASSERT_TRUE(window);
    for (const char16_t *title : {u"Some", u"Some target ", u"Other"})
        EXPECT_FALSE(target->windows().find(title)) << shown(std::u16string(title));
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(
            target->windows().post(*window, {platform::commandMessage, static_cast<unsigned>(i), -i}));
    EXPECT_TRUE(contracts::waitUntil([&] { return target->taken.size() == 3; }));
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(target->taken.at(static_cast<unsigned>(i)).message, platform::commandMessage);
        EXPECT_EQ(target->taken.at(static_cast<unsigned>(i)).wParam, static_cast<unsigned>(i));
        EXPECT_EQ(target->taken.at(static_cast<unsigned>(i)).lParam, -i);
    }
    target.reset();
    EXPECT_FALSE(m_windows.find(u"Some target"));
    EXPECT_FALSE(m_windows.post(*window, {platform::commandMessage, 0, 0}));
}
