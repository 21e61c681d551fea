#include "contracts/backend.h"
#include "contracts/programfolder.h"
#include "contracts/toplevelwindows.h"
#include "windows/resources.h"

#include "platform/windows/handles.h"
#include "platform/windows/widetext.h"
#include "platform/windows/windowhandles.h"
#include "platform/windows/windowshiddenwindows.h"
#include "platform/windows/windowstoplevelwindows.h"

#include <gmock/gmock.h>
#include <process.h>

#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;
using platform::Picture;
using platform::WindowHandle;

namespace {

constexpr std::uint32_t red = 0xffff0000;
constexpr std::uint32_t blue = 0xff0000ff;

class Opener : public contracts::WindowOpener
{
public:
    explicit Opener(const std::vector<std::u16string> &windows)
    {
        const auto output = fs::path(contracts::scratchFolder()) / "opened";
        std::ofstream(output).flush();
        m_output.open(output);
        std::wstring line = L'"' + output.native() + L'"';
        for (const std::u16string &argument : windows)
            line += L" \"" + fs::path(argument).native() + L'"';
        m_process.reset(reinterpret_cast<HANDLE>(
            _wspawnl(_P_NOWAIT, fs::path(file()).c_str(), L"windowopener", line.c_str(), nullptr)));
    }
    ~Opener() override
    {
        TerminateProcess(m_process.get(), 0);
        WaitForSingleObject(m_process.get(), INFINITE);
    }
    Opener(const Opener &) = delete;
    Opener &operator=(const Opener &) = delete;

    std::u16string file() const override
    {
        return (contracts::programFolder() / "windowopener.exe").u16string();
    }

    std::string readLine() override
    {
        std::string line;
        const bool isRead = contracts::waitUntil([&] {
            const auto begin = m_output.tellg();
            const bool isWhole = std::getline(m_output, line) && !m_output.eof();
            m_output.clear();
            if (!isWhole)
                m_output.seekg(begin);
            return isWhole;
        });
        return isRead ? line : std::string();
    }

private:
    std::ifstream m_output;
    platform::UniqueHandle m_process;
};

class Target : public contracts::MessageTarget
{
public:
    explicit Target(const std::u16string &title)
    {
        SetWindowTextW(platform::windowOf(m_window->handle()), platform::wide(title));
    }

    platform::TopLevelWindows &windows() override { return m_windows; }

private:
    platform::WindowsTopLevelWindows m_windows;
    platform::WindowsHiddenWindows m_hiddenWindows;
    const std::unique_ptr<platform::HiddenWindowClass> m_class =
        m_hiddenWindows.registerClass(u"Target", [this](const platform::WindowMessage &message) {
            const bool isPosted = message.message == WM_COMMAND || message.message >= WM_APP;
            if (isPosted)
                taken.push_back(message);
            return isPosted;
        });
    const std::unique_ptr<platform::HiddenWindow> m_window = m_class->createWindow();
};

class WindowsTopLevelWindowsTest : public testing::Test
{
protected:
    /// Opens windows: kinds and titles in turn. Waits until the last one is shown.
    void open(const std::vector<std::u16string> &windows)
    {
        m_opener = contracts::openWindows(windows);
        EXPECT_TRUE(contracts::waitUntil([&] { return m_windows.isVisible(windowOf(windows.back())); }));
    }

    WindowHandle windowOf(const std::u16string &title) { return m_windows.find(title).value_or(0); }

    platform::WindowsTopLevelWindows m_windows;
    std::unique_ptr<contracts::WindowOpener> m_opener;
};

} // namespace

std::unique_ptr<contracts::WindowOpener> contracts::openWindows(const std::vector<std::u16string> &windows)
{
    return std::make_unique<Opener>(windows);
}

std::unique_ptr<contracts::MessageTarget> contracts::makeTarget(const std::u16string &title)
{
    return std::make_unique<Target>(title);
}

TEST_F(WindowsTopLevelWindowsTest, ChildrenAreNotEnumeratedButTold)
{
    open({u"window", u"Outside", u"child", u"Inside", u"window", u"Last"});
    const HWND outside = platform::windowOf(windowOf(u"Outside"));
    const WindowHandle child = platform::handleOf(FindWindowExW(outside, nullptr, nullptr, L"Inside"));
    std::vector<WindowHandle> told;
    m_windows.enumerate([&](WindowHandle window) {
        told.push_back(window);
        return true;
    });
    EXPECT_THAT(told, testing::Contains(windowOf(u"Outside")));
    EXPECT_THAT(told, testing::Not(testing::Contains(child)));
    EXPECT_EQ(m_windows.style(child) & platform::childStyle, platform::childStyle);
    EXPECT_EQ(m_windows.parent(child), windowOf(u"Outside"));
}

TEST_F(WindowsTopLevelWindowsTest, CommandsReachOtherPrograms)
{
    open({u"window", u"Listens"});
    const WindowHandle window = windowOf(u"Listens");
    for (const int command : {1, 40001}) {
        EXPECT_TRUE(
            m_windows.post(window, {platform::commandMessage, static_cast<std::uint64_t>(command), 0}));
        EXPECT_TRUE(m_opener->tells("command " + std::to_string(command)));
    }
}

TEST_F(WindowsTopLevelWindowsTest, WindowsComeToTheFront)
{
    open({u"window", u"One", u"window", u"Two"});
    for (const char16_t *title : {u"One", u"Two", u"One"}) {
        // Those that have just been opened come to the front by themselves, and maybe late.
        EXPECT_TRUE(contracts::waitUntil([&] {
            const WindowHandle window = windowOf(title);
            return m_windows.setForeground(window) && platform::handleOf(GetForegroundWindow()) == window;
        }));
    }
}

TEST_F(WindowsTopLevelWindowsTest, ClosingWaitsUntilItIsHandled)
{
    open({u"slow", u"Slow"});
    const WindowHandle window = windowOf(u"Slow");
    m_windows.close(window);
    EXPECT_FALSE(m_windows.exists(window));
    EXPECT_TRUE(m_opener->tells("closed Slow"));
}

TEST_F(WindowsTopLevelWindowsTest, ProgramsThatHangAreNotWaitedFor)
{
    open({u"window", u"Hangs", u"hanging", u"Hangs, too"});
    EXPECT_TRUE(m_opener->tells("hanging Hangs, too"));
    const WindowHandle window = windowOf(u"Hangs");
    EXPECT_EQ(m_windows.title(window, 100), u"Hangs");
    EXPECT_EQ(m_windows.programFile(window, 1000), m_opener->file());
    EXPECT_EQ(m_windows.snapshot(window).width, 91);
    EXPECT_TRUE(m_windows.post(window, {platform::commandMessage, 1, 0}));
}

TEST_F(WindowsTopLevelWindowsTest, SnapshotsOfFramedWindowsBeginInsideTheFrame)
{
    open({u"framed", u"Framed"});
    const WindowHandle window = windowOf(u"Framed");
    RECT frame{};
    RECT inside{};
    EXPECT_TRUE(GetWindowRect(platform::windowOf(window), &frame));
    EXPECT_TRUE(GetClientRect(platform::windowOf(window), &inside));
    ASSERT_GT(inside.right, 2);
    EXPECT_TRUE(contracts::waitUntil([&] {
        const Picture picture = m_windows.snapshot(window);
        if (picture.width != frame.right - frame.left || picture.height != frame.bottom - frame.top)
            return false;
        const auto second = picture.pixels.begin() + picture.width;
        return second[0] == blue && second[1] == red && second[inside.right - 2] == red
            && second[inside.right - 1] == blue;
    }));
    ShowWindow(platform::windowOf(window), SW_HIDE);
    EXPECT_EQ(m_windows.snapshot(window).width, 0);
}

TEST_F(WindowsTopLevelWindowsTest, LeaveNothingBehind)
{
    open({u"window", u"Seen"});
    const WindowHandle window = windowOf(u"Seen");
    expectNoLeak([&] {
        EXPECT_EQ(m_windows.snapshot(window).width, 91);
        EXPECT_EQ(m_windows.title(window, 254), u"Seen");
        EXPECT_FALSE(m_windows.programFile(window, 1024).empty());
        EXPECT_EQ(windowOf(u"Seen"), window);
        EXPECT_TRUE(m_windows.exists(window) && m_windows.isVisible(window));
        EXPECT_FALSE(m_windows.parent(window));
        EXPECT_EQ(m_windows.style(window) & platform::childStyle, 0U);
        m_windows.enumerate([](WindowHandle) { return true; });
    });
    constexpr int times = 1000; // since these wake the other program up
    expectNoLeak(
        [&] {
            EXPECT_TRUE(m_windows.post(window, {}));
            EXPECT_TRUE(m_windows.setForeground(window));
        },
        times);
}
