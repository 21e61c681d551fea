#include "contracts/toplevelwindows.h"

#include <QtCore/QProcess>
#include <QtWidgets/QWidget>

#include <set>

// What windows have on an X11 desktop only.

using platform::Picture;
using platform::WindowHandle;
using testing::ElementsAre;

namespace {

class X11WindowsTest : public contracts::TopLevelWindowsTest
{
protected:
    static QString runWmctrl(const QStringList &arguments)
    {
        QProcess process;
        process.start(QStringLiteral("wmctrl"), arguments);
        EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0);
        return QString::fromUtf8(process.readAllStandardOutput());
    }

    std::vector<WindowHandle> enumerated()
    {
        std::vector<WindowHandle> all;
        m_windows.enumerate([&all](WindowHandle window) {
            all.push_back(window);
            return true;
        });
        return all;
    }
};

} // namespace

TEST_F(X11WindowsTest, AreThoseOfTheWindowManagerButPanels)
{
    constexpr std::size_t plainWindows = 200;
    std::vector<std::u16string> windows{u"dock", u"Panel"};
    for (std::size_t i = 0; i < plainWindows; ++i)
        windows.insert(windows.end(), {u"window", u"plain"});
    open(windows, 1);
    QWidget own;
    own.setWindowTitle(QStringLiteral("Own"));
    own.show();
    QProcess terminal;
    terminal.start(QStringLiteral("xterm"), {QStringLiteral("-T"), QStringLiteral("Terminal")});
    EXPECT_TRUE(contracts::waitUntil([&] { return enumerated().size() == plainWindows + 2; }));
    EXPECT_EQ(m_windows.title(own.winId(), 100), u"HOLM");
    std::set<std::u16string> programs;
    for (const WindowHandle window : enumerated())
        programs.insert(m_windows.programFile(window, 1024));
    EXPECT_THAT(programs,
                testing::UnorderedElementsAre(QCoreApplication::applicationFilePath().toStdU16String(),
                                              m_opener->file(), u"/usr/bin/xterm"));

    // Each line is "0xNUMBER DESKTOP MACHINE TITLE".
    std::vector<WindowHandle> expected;
    for (const QString &line :
         runWmctrl({QStringLiteral("-l")}).split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        if (!line.endsWith(QLatin1String(" Panel")))
            expected.push_back(line.section(QLatin1Char(' '), 0, 0).toULongLong(nullptr, 0));
    }
    EXPECT_THAT(enumerated(), testing::UnorderedElementsAreArray(expected));
    terminal.kill();
    terminal.waitForFinished();
}

TEST_F(X11WindowsTest, ComeToTheFrontFromWhereverTheyAre)
{
    open({u"window", u"elsewhere", u"minimized", u"small", u"window", u"covered", u"window", u"last"});
    runWmctrl({QStringLiteral("-r"), QStringLiteral("elsewhere"), QStringLiteral("-t"), QStringLiteral("2")});
    EXPECT_TRUE(contracts::waitUntil([&] { return m_windows.snapshot(windowOf(u"elsewhere")).width == 0; }));
    for (const char16_t *title : {u"covered", u"small", u"elsewhere", u"last"}) {
        const WindowHandle window = windowOf(title);
        EXPECT_TRUE(m_windows.setForeground(window));
        EXPECT_TRUE(m_opener->tells("active " + contracts::shown(std::u16string(title))));
        EXPECT_TRUE(contracts::waitUntil([&] { return listed().front() == window; }))
            << contracts::shown(std::u16string(title));
    }
}

TEST_F(X11WindowsTest, MayCloseWhileTheyAreTold)
{
    open({u"window", u"one", u"window", u"two"});
    const std::vector<WindowHandle> before = listed();
    std::vector<WindowHandle> told;
    m_windows.enumerate([&](WindowHandle window) {
        m_windows.close(before[1]);
        EXPECT_TRUE(contracts::waitUntil([&] { return !m_windows.exists(before[1]); }));
        told.push_back(window);
        return true;
    });
    EXPECT_EQ(told, before);
    EXPECT_THAT(listed(), ElementsAre(before[0]));
}

TEST_F(X11WindowsTest, AreBlackBeyondTheScreen)
{
    constexpr int screenWidth = 1280;
    constexpr int width = screenWidth + 300;
    constexpr std::uint32_t black = 0xff000000;
    open({u"beyond", u"beyond"});
    const WindowHandle window = windowOf(u"beyond");
    EXPECT_TRUE(contracts::waitUntil([&] {
        const Picture picture = m_windows.snapshot(window);
        const auto second = picture.pixels.begin() + width;
        return picture.width == width && picture.height == 61 && second[0] == contracts::blue
            && second[1] == contracts::red && second[screenWidth - 200] == contracts::red
            && second[screenWidth] == black && second[width - 1] == black;
    }));
}
