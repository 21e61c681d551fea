#include "support/holmprocess.h"

#include <QtCore/QFile>
#include <QtTest/QTest>
#include <csignal>
#include <gmock/gmock.h>

namespace {

const QStringList watching = {QStringLiteral("--unattended"), QStringLiteral("--timeout"),
                              QStringLiteral("60"), QStringLiteral("--watch"), QStringLiteral("w")};

bool waitForText(QProcess &process, const QString &text, QString *output)
{
    return QTest::qWaitFor(
        [&] {
            process.waitForReadyRead(10);
            *output += QString::fromUtf8(process.readAll());
            return output->contains(text);
        },
        60000);
}

} // namespace

TEST(HolmWatch, RunsAfreshWhenTheNewScriptParses)
{
    const HolmProcess holm;
    const QString script = QStringLiteral("w/widget.js");
    holm.write(script, "include('part.js'); print('first'); setInterval(function() { print('old') }, 200)");
    holm.write(QStringLiteral("w/part.js"), "");
    const auto process = holm.prepare(watching);
    process->setProcessChannelMode(QProcess::MergedChannels);
    process->start();
    QString output;
    ASSERT_TRUE(waitForText(*process, QStringLiteral("first\n"), &output)) << output.toStdString();

    holm.write(script, "print('broken'; (");
    ASSERT_TRUE(waitForText(*process, QStringLiteral("w/widget.js:1: SyntaxError"), &output));
    output.clear();
    EXPECT_TRUE(waitForText(*process, QStringLiteral("old"), &output)) << "the run before goes on";

    holm.write(QStringLiteral("w/part.js"), "(");
    holm.write(script, "print('not run')");
    ASSERT_TRUE(waitForText(*process, QStringLiteral("w/part.js:1: SyntaxError"), &output));
    holm.write(QStringLiteral("w/part.js"), "");

    // As editors do it: a new file takes the place of the old one.
    holm.write(QStringLiteral("w/new"), "include('part.js'); print('second'); x()");
    ASSERT_EQ(rename(qPrintable(holm.path(QStringLiteral("w/new"))), qPrintable(holm.path(script))), 0);
    ASSERT_TRUE(waitForText(*process, QStringLiteral("waiting for a change"), &output))
        << output.toStdString();
    EXPECT_THAT(output.toStdString(), testing::HasSubstr("second\nw/widget.js:1: ReferenceError"));

    // As a checkout may do it: the folder is gone for a while.
    const QString away = holm.path(QStringLiteral("away"));
    ASSERT_TRUE(QFile::rename(holm.path(QStringLiteral("w")), away));
    QTest::qWait(500);
    ASSERT_TRUE(QFile::rename(away, holm.path(QStringLiteral("w"))));
    QTest::qWait(500);

    output.clear();
    holm.write(QStringLiteral("w/part.js"), "quit(5)");
    ASSERT_TRUE(process->waitForFinished());
    EXPECT_EQ(process->exitCode(), 5);
    EXPECT_FALSE(QString::fromUtf8(process->readAll()).contains(QLatin1String("old")));
}

TEST(HolmWatch, LeavesNoRunBehind)
{
    for (const int signal : {SIGTERM, SIGKILL}) {
        const HolmProcess holm;
        holm.write(QStringLiteral("w/widget.js"), "print('ready'); while (true) launch('beat.sh');");
        holm.write(QStringLiteral("beat.sh"), "#!/bin/sh\necho >> beats\n");
        QFile::setPermissions(holm.path(QStringLiteral("beat.sh")), QFile::ReadOwner | QFile::ExeOwner);
        const auto process = holm.prepare(watching);
        process->start();
        QString output;
        ASSERT_TRUE(waitForText(*process, QStringLiteral("ready"), &output));
        const QFile beats(holm.path(QStringLiteral("beats")));
        ASSERT_TRUE(QTest::qWaitFor([&beats] { return beats.exists(); }));

        kill(static_cast<pid_t>(process->processId()), signal);
        ASSERT_TRUE(process->waitForFinished());
        const auto noMoreBeats = [&beats] {
            const qint64 size = beats.size();
            QTest::qWait(500);
            return beats.size() == size;
        };
        EXPECT_TRUE(QTest::qWaitFor(noMoreBeats, 30000)) << "the widget still runs after signal " << signal;
    }
}
