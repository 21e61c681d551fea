#pragma once

#include "contracts/backend.h"
#include "contracts/texts.h"

#include "platform/toplevelwindows.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace contracts {

/// The helper program windowopener, which opens windows, 91 pixels wide and 61 high, red with a blue edge one
/// pixel wide, and tells what happens to them; see there. Ends it when it is destroyed.
class WindowOpener
{
public:
    virtual ~WindowOpener() = default;

    /// The program, as programFile() tells it.
    virtual std::u16string file() const = 0;

    /// What it tells next: "active TITLE" or "closed TITLE". Waits for it; empty if there will be no more.
    virtual std::string readLine() = 0;

    /// Waits until it has told that.
    bool tells(const std::string &expected)
    {
        std::string line;
        do
            line = readLine();
        while (!line.empty() && line != expected);
        return line == expected;
    }
};

/// @p windows are kinds and titles in turn.
std::unique_ptr<WindowOpener> openWindows(const std::vector<std::u16string> &windows);

/// A window that is not seen, and that others find by its title. Takes messages from the event loop.
class MessageTarget
{
public:
    virtual ~MessageTarget() = default;

    /// The back end that may find it.
    virtual platform::TopLevelWindows &windows() = 0;

    std::vector<platform::WindowMessage> taken;
};

std::unique_ptr<MessageTarget> makeTarget(const std::u16string &title);

constexpr std::uint32_t red = 0xffff0000;
constexpr std::uint32_t blue = 0xff0000ff;

/// The windows of a back end, and a program that opens some.
class TopLevelWindowsTest : public testing::Test
{
protected:
    /// Opens windows: kinds and titles in turn. Waits until all are there, but for @p panels.
    void open(const std::vector<std::u16string> &windows, unsigned panels = 0)
    {
        m_opener = openWindows(windows);
        EXPECT_TRUE(waitUntil([&] { return listed().size() == windows.size() / 2 - panels; }));
    }

    /// The opened windows, the uppermost first.
    std::vector<platform::WindowHandle> listed()
    {
        std::vector<platform::WindowHandle> all;
        m_windows.enumerate([&](platform::WindowHandle window) {
            if (m_windows.programFile(window, 1024) == m_opener->file() && m_windows.isVisible(window))
                all.push_back(window);
            return true;
        });
        return all;
    }

    platform::WindowHandle windowOf(const std::u16string &title)
    {
        for (const platform::WindowHandle window : listed()) {
            if (m_windows.title(window, 1000) == title)
                return window;
        }
        ADD_FAILURE() << "There is no window " << shown(title);
        return 0;
    }

    /// Whether the window has that size, and shows what the opener draws.
    bool isDrawn(platform::WindowHandle window, int width, int height)
    {
        const platform::Picture picture = m_windows.snapshot(window);
        bool isRight = picture.width == width && picture.height == height;
        for (int i = 0; isRight && i < width * height; ++i) {
            const int x = i % width;
            const int y = i / width;
            const bool isEdge = x == 0 || y == 0 || x == width - 1 || y == height - 1;
            isRight = picture.pixels.at(static_cast<std::size_t>(i)) == (isEdge ? blue : red);
        }
        return isRight;
    }

    const std::unique_ptr<platform::Platform> m_platform = makePlatform();
    platform::TopLevelWindows &m_windows = m_platform->windows();
    std::unique_ptr<WindowOpener> m_opener;
};

} // namespace contracts
