#include "support/faultserver.h"
#include "support/holmprocess.h"

#include <QtTest/QTest>
#include <gmock/gmock.h>

namespace {

/// Widgets find the server's address in args[0].
class HolmFetch : public testing::Test
{
protected:
    HolmFetch()
    {
        m_server.answer("/plain", "HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nplain", Ending::KeepOpen);
        m_server.answer("/gone", "HTTP/1.1 404 Gone\r\n\r\nnot here");
    }

    QStringList commandLine(const QStringList &options = {}) const
    {
        return QStringList{QStringLiteral("--unattended")} << options << QStringLiteral("w.js")
                                                           << m_server.url();
    }

    void expectOutput(const QByteArray &script, const QString &output)
    {
        m_holm.write(QStringLiteral("w.js"), script);
        const HolmResult result =
            m_holm.run(commandLine({QStringLiteral("--timeout"), QStringLiteral("60")}));
        EXPECT_EQ(result.status, 0) << script.constData();
        EXPECT_EQ(result.output.toStdString(), output.toStdString()) << script.constData();
        EXPECT_EQ(result.errors.toStdString(), "") << script.constData();
    }

    FaultServer m_server;
    HolmProcess m_holm;
};

} // namespace

TEST_F(HolmFetch, EndsARunAfterTheLastAnswer)
{
    expectOutput("getUrl(args[0] + '/plain', this, print); print('asked')",
                 QStringLiteral("asked\nfalse plain\n"));
    expectOutput("getUrl(args[0] + '/gone', this, print)",
                 QStringLiteral("true Error transferring %1/gone - server replied: Gone\nfalse not here\n")
                     .arg(m_server.url()));
    // The last call may go on with something.
    expectOutput(
        "getUrl('http://[', this, function() { getRSSFeed(args[0] + '/plain', this, function(e, items) {"
        " setTimeout(function() { print(e, items.length); }, 1); }); })",
        QStringLiteral("false 0\n"));
}

TEST_F(HolmFetch, FailsWithoutADataConnection)
{
    EXPECT_EQ(m_holm.command({QStringLiteral("network"), QStringLiteral("down")}).status, 0);
    expectOutput("getUrl(args[0] + '/plain', this, print)",
                 QStringLiteral("true Could not open data connection.\n"));
}

TEST_F(HolmFetch, KeepsCallbacksThatNothingElseRefersTo)
{
    expectOutput("for (var i = 0; i < 50; ++i)"
                 "    getUrl(args[0] + '/plain', { n: i }, function(e, text) {"
                 "        sum += this.n; gc(); if (++count == 50) print(sum, text); });"
                 "var sum = 0, count = 0; gc(); setTimeout(gc, 1);",
                 QStringLiteral("1225 plain\n"));
}

TEST_F(HolmFetch, StartsAfreshWhileFetchesAreInProgress)
{
    const QString script = QStringLiteral("w.js");
    m_holm.write(script, "for (var i = 0; i < 20; ++i) getUrl(args[0] + '/never', this, print)");
    const auto process = m_holm.prepare(commandLine({QStringLiteral("--watch")}));
    process->start();
    ASSERT_TRUE(process->waitForStarted());
    const int parallelFetches = 6; // of one server
    ASSERT_TRUE(QTest::qWaitFor([&] { return m_server.requests().size() == parallelFetches; }, 60000));

    m_holm.write(script,
                 "getUrl(args[0] + '/plain', this, function(e, text) { print(text); quit(3); });"
                 "getUrl(args[0] + '/never', this, print)");
    ASSERT_TRUE(process->waitForFinished());
    EXPECT_EQ(process->exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process->exitCode(), 3);
    EXPECT_EQ(process->readAllStandardOutput().toStdString(), "plain\n");
    EXPECT_EQ(process->readAllStandardError().toStdString(), "");
}
