#include "support/holmprocess.h"
#include "support/registryprocess.h"

#include <QtCore/QFile>
#include <csignal>
#include <gmock/gmock.h>
#include <thread>

namespace {

const char form[] = R"(<ui version="4.0"><widget class="QLabel" name="l"/></ui>)";

/// Waits until the process has put out the line, and returns what it put out so far.
QByteArray outputUntil(QProcess &process, const QByteArray &line)
{
    QByteArray output;
    while (!output.contains(line + '\n') && process.waitForReadyRead())
        output += process.readAllStandardOutput();
    return output;
}

/// The processor time of a process, in the system's ticks (proc(5)).
qint64 processorTime(qint64 pid)
{
    constexpr int userTime = 11; // counted from the field behind the program's name
    QFile file(QStringLiteral("/proc/%1/stat").arg(pid));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QList<QByteArray> fields = file.readAll().split(')').last().trimmed().split(' ');
    return fields.value(userTime).toLongLong() + fields.value(userTime + 1).toLongLong();
}

} // namespace

TEST(HolmRegistryEvents, ReachTheScriptCompleteAndInOrder)
{
    const HolmProcess holm;
    holm.write(QStringLiteral("widget/widget.ui"), form);
    holm.write(QStringLiteral("widget/widget.js"), R"(
        var count = 0, wrong = 0;
        function watch(i) {
          var path = "HKCU\\Software\\Widgets\\v" + i;
          regEventSuscribe(widget, function (changed, before, now) {
            if (changed !== path || before !== undefined || now !== ++count || now % 100 !== i) ++wrong;
            if (now === 10000) print("wrong: " + wrong);
          }, path);
        }
        for (var i = 0; i < 100; ++i) watch(i);
        print("ready");
    )");
    const auto process = holm.prepare({QStringLiteral("--unattended"), QStringLiteral("widget")});
    process->start();
    outputUntil(*process, "ready");
    RegistryProcess writer(holm.path(QStringLiteral("device")), 10000, 100);
    EXPECT_EQ(writer.finish(), 10000);
    EXPECT_EQ(outputUntil(*process, "wrong: 0"), "wrong: 0\n");

    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    const qint64 before = processorTime(process->processId());
    std::this_thread::sleep_for(std::chrono::seconds(1));
    EXPECT_LE(processorTime(process->processId()) - before, 1) << "it works while nothing happens";
    process->terminate();
    EXPECT_TRUE(process->waitForFinished());
    EXPECT_EQ(process->exitCode(), 128 + SIGTERM) << process->readAllStandardError().toStdString();
}
