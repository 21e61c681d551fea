#include "contracts/backend.h"
#include "contracts/texts.h"
#include "contracts/toplevelwindows.h"

#include <algorithm>
#include <climits>
#include <gmock/gmock.h>

namespace {

using contracts::shown;
using platform::Picture;
using platform::WindowHandle;
using testing::ElementsAre;

constexpr int titleLength = 254;
constexpr std::uint32_t red = 0xffff0000;
constexpr std::uint32_t blue = 0xff0000ff;

class TopLevelWindowsContract : public testing::Test
{
protected:
    /// Opens windows: kinds and titles in turn. Waits until all are there.
    void open(const std::vector<std::u16string> &windows)
    {
        m_opener = contracts::openWindows(windows);
        EXPECT_TRUE(contracts::waitUntil([&] { return listed().size() == windows.size() / 2; }));
    }

    /// The opened windows, the uppermost first.
    std::vector<WindowHandle> listed()
    {
        std::vector<WindowHandle> all;
        m_windows.enumerate([&](WindowHandle window) {
            if (m_windows.programFile(window, 1024) == m_opener->file() && m_windows.isVisible(window))
                all.push_back(window);
            return true;
        });
        return all;
    }

    WindowHandle windowOf(const std::u16string &title)
    {
        for (const WindowHandle window : listed()) {
            if (m_windows.title(window, 1000) == title)
                return window;
        }
        ADD_FAILURE() << "There is no window " << shown(title);
        return 0;
    }

    /// Whether the window has that size, and shows what the opener draws.
    bool isDrawn(WindowHandle window, int width, int height)
    {
        const Picture picture = m_windows.snapshot(window);
        bool isRight = picture.width == width && picture.height == height;
        for (int i = 0; isRight && i < width * height; ++i) {
            const int x = i % width;
            const int y = i / width;
            const bool isEdge = x == 0 || y == 0 || x == width - 1 || y == height - 1;
            isRight = picture.pixels.at(static_cast<std::size_t>(i)) == (isEdge ? blue : red);
        }
        return isRight;
    }

    const std::unique_ptr<platform::Platform> m_platform = contracts::makePlatform();
    platform::TopLevelWindows &m_windows = m_platform->windows();
    std::unique_ptr<contracts::WindowOpener> m_opener;
};

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
