#include "support/holmprocess.h"
#include "support/xdesktop.h"

#include <gmock/gmock.h>

// A widget with a window of its own on a real desktop, where another program has some, too.
TEST(TasksRun, ListsFocusesAndClosesWindows)
{
    const XDesktop desktop;
    ASSERT_EQ(desktop.problem(), QString());
    QProcess opener;
    opener.setProcessEnvironment(desktop.environment());
    opener.start(QStringLiteral(WINDOW_OPENER),
                 {QStringLiteral("window"), QStringLiteral("one"), QStringLiteral("dialog"),
                  QStringLiteral("of one"), QStringLiteral("minimized"), QStringLiteral("two")});

    const HolmProcess holm;
    holm.write(QStringLiteral("w/widget.ui"),
               R"(<ui version="4.0"><class>W</class><widget class="QWidget" name="W"/></ui>)");
    holm.write(QStringLiteral("w/widget.js"), R"(
        var tasks = [];
        function list(mode) {
            runningProcesses("t", mode, this, function(entries) { tasks = entries; }, tasks);
            return tasks.map(function(task) { return task.name; });
        }
        function named(name) { return tasks.filter(function(task) { return task.name === name; })[0]; }
        function resources(mode) {
            list(mode);
            return ["one", "two"].map(function(name) {
                return String(named(name).imgRes).replace(named(name).hWnd, "N");
            });
        }
        var steps = [
            function() {
                if (list(null).sort().join() !== "one,two") return false;
                print(resources("snapshots"), resources("icons"), resources("none"));
                focusWindow(named("two"));
                return true;
            },
            function() {
                if (list(null).join() !== "two,one") return false;
                closeWindow(named("one"));
                return true;
            },
            function() { return list(null).join() === "two"; }
        ];
        setInterval(function() {
            if (steps[0]()) steps.shift();
            if (steps.length === 0) quit(0);
        }, 20);)");
    const auto process = holm.prepare({QStringLiteral("--timeout=60"), QStringLiteral("w")});
    QProcessEnvironment environment = desktop.environment();
    environment.insert(QStringLiteral("HOLM_DEVICE"), holm.path(QStringLiteral("device")));
    process->setProcessEnvironment(environment);
    process->start();
    constexpr int patience = 90000;
    EXPECT_TRUE(process->waitForFinished(patience));
    EXPECT_EQ(process->exitCode(), 0);
    EXPECT_EQ(process->readAllStandardOutput(),
              "tN,images/app/exe.png images/app/exe.png,images/app/exe.png undefined,undefined\n");
    EXPECT_EQ(process->readAllStandardError(), "");
    opener.kill();
    opener.waitForFinished();
}
