#include "support/holmprocess.h"

#include <gmock/gmock.h>

// A widget with a window of its own on a real desktop, where another program has some, too.
TEST(TasksRun, ListsFocusesAndClosesWindows)
{
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
    process->setArguments(
        QStringList{
            QStringLiteral("sh"), QStringLiteral("-c"),
            QStringLiteral(R"("$0" window one dialog 'of one' minimized two >/dev/null 2>&1 & exec "$@")"),
            QStringLiteral(WINDOW_OPENER), process->program()}
        + process->arguments());
    process->setProgram(QStringLiteral(SOURCE_DIR "/tests/support/with-desktop"));
    process->start();
    constexpr int patience = 90000;
    EXPECT_TRUE(process->waitForFinished(patience));
    EXPECT_EQ(process->exitCode(), 0);
    EXPECT_EQ(process->readAllStandardOutput(),
              "tN,images/app/exe.png images/app/exe.png,images/app/exe.png undefined,undefined\n");
    EXPECT_EQ(process->readAllStandardError(), "");
}
