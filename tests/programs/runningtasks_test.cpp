#include "orvanecore/imageresources.h"
#include "support/fakeicons.h"
#include "support/fakewindows.h"
#include "support/pictures.h"
#include "support/providertest.h"

namespace {

class TasksTest : public ProviderTest
{
protected:
    TasksTest()
    {
        m_platform->iconsInForce = &m_icons;
        m_platform->windowsInForce = &m_windows;
        m_icons.icons = {{QStringLiteral("/mail.exe,0"), {32, 16}}, {QStringLiteral("/map.exe,0"), {0, 0}}};
        m_windows.windows = {{8, QStringLiteral("Mail"), QStringLiteral("/mail.exe")},
                             {4294967295, QStringLiteral("Map"), QStringLiteral("/map.exe")},
                             {9, QStringLiteral("Lost")}};
        m_windows.windows[1].picture = {2, 1, {0x00112233, 0}};
    }

    QString pictureOf(const char *name) const
    {
        return description(ImageResources::instance()->picture(QLatin1String(name)).toImage());
    }

    FakeIcons m_icons;
    FakeWindows m_windows;
};

} // namespace

TEST_F(TasksTest, ListsTheWindowsOfTasks)
{
    using Window = FakeWindow;
    const auto titled = [](const QString &title) { return Window{1, title}; };
    std::vector<Window> skipped;
    for (const char *title : {"Desktop", "HOLM", "MS_SIPBUTTON", "Programs", ""})
        skipped.push_back(titled(QLatin1String(title)));
    for (int i = 0; i < 4; ++i)
        skipped.push_back(titled(QStringLiteral("Task")));
    skipped[5].style = 0x50000000;
    skipped[6].exists = false;
    skipped[7].isVisible = false;
    skipped[8].parent = 8;
    for (const Window &window : skipped) {
        m_windows.windows = {window, {8, QStringLiteral("programs")}};
        EXPECT_EQ(run(QStringLiteral("results = []; runningProcesses('p', null, this, cb); results")),
                  QStringLiteral("[[[{\"name\":\"programs\",\"hWnd\":8}]]]"))
            << window.title.toStdString();
    }
    m_windows.windows.resize(1);
    EXPECT_EQ(run(QStringLiteral("results = []; runningProcesses('p', null, this, cb); results")),
              QStringLiteral("[[[]]]"));
    m_windows.windows = {titled(QString(300, QChar(0x4e2d)))};
    EXPECT_EQ(run(QStringLiteral(
                  "results = []; runningProcesses('p', 'none', this, cb, 5); results[0][0][0].name.length")),
              QStringLiteral("253"));
}

TEST_F(TasksTest, PicturesArePublished)
{
    const QPair<const char *, const char *> modes[] = {
        {"'icons'", "p8,images/app/exe.png,"},
        {"'none'", ",,"},
        {"null", ",,"},
        {"'Icons'", "images/app/exe.png,p4294967295,images/app/exe.png"},
    };
    for (const auto &[mode, names] : modes)
        EXPECT_EQ(run(QStringLiteral("runningProcesses('p', %1, this, function(list) { tasks = list; });"
                                     "tasks.map(function(task) { return task.imgRes; }).join()")
                          .arg(QLatin1String(mode))),
                  QLatin1Char('"') + QLatin1String(names) + QLatin1Char('"'))
            << mode;
    EXPECT_EQ(run(QStringLiteral("Object.keys(tasks[1])")), QStringLiteral("[\"name\",\"hWnd\",\"imgRes\"]"));
    EXPECT_EQ(pictureOf("p8"), QStringLiteral("32x32 #80ff0000"));
    EXPECT_EQ(pictureOf("p4294967295"), QStringLiteral("2x1 #ff112233"));

    RecordingApplication vga(m_application.applicationPath(), true);
    m_provider.InitializeScript(&vga);
    EXPECT_EQ(
        vga.engine()
            .evaluate(QStringLiteral("runningProcesses('p', 'icons', this, function(list) { tasks = list; });"
                                     "tasks[1].imgRes"))
            .toString(),
        QStringLiteral("images/app/exe.vga.png"));
    m_provider.InitializeScript(&m_application);
}

TEST_F(TasksTest, PicturesAreFreed)
{
    const ImageResources &published = *ImageResources::instance();
    run(QStringLiteral("list = function(mode, old) { runningProcesses('p', mode, this,"
                       "  function(tasks) { last = tasks; }, old); }; list('icons')"));
    EXPECT_EQ(published.count(), 1);
    for (const char *old : {"{0: last[0]}", "null", "'last'"})
        run(QStringLiteral("list('none', %1)").arg(QLatin1String(old)));
    EXPECT_EQ(published.count(), 1); // only arrays are lists
    // The list ends at its first undefined element, and only there.
    run(QStringLiteral("clearRunningProcessesResources([undefined, {imgRes: 'p8'}])"));
    EXPECT_EQ(published.count(), 1);
    run(QStringLiteral("clearRunningProcessesResources([5, null, {}, {imgRes: undefined}, {imgRes: 'p8'}])"));
    EXPECT_EQ(published.count(), 0);

    run(QStringLiteral(
        "last = []; for (var i = 0; i < 1000; ++i) list(i % 2 ? 'icons' : 'snapshots', last)"));
    EXPECT_EQ(published.count(), 1);
    run(QStringLiteral("list('none', last)"));
    EXPECT_EQ(published.count(), 0);
    EXPECT_EQ(m_icons.handedOut, 0);
}

TEST_F(TasksTest, WindowsAreFocusedAndClosed)
{
    run(QStringLiteral("[{hWnd: 8}, {hWnd: '9'}, {hWnd: 4294967295}, {}, {hWnd: -1}, {hWnd: 1e300}, {hWnd: "
                       "NaN}, {hWnd: undefined}]"
                       ".forEach(function(task) { focusWindow(task); closeWindow(task); })"));
    EXPECT_EQ(
        m_windows.done.join(QLatin1String(", ")),
        QStringLiteral(
            "focus 8, close 8, focus 9, close 9, focus 4294967295, close 4294967295, focus 0, close 0"));
}
