#include "network/fetchcallbacks.h"
#include "network/networkthread.h"
#include "support/faultserver.h"
#include "support/nginxserver.h"
#include "support/providertest.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTextCodec>
#include <QtTest/QTest>

namespace {

const char htmlPage[] =
    R"(<html>\r\n<head><title>%1</title></head>\r\n<body>\r\n<center><h1>%1</h1></center>\r\n)"
    R"(<hr><center>nginx</center>\r\n</body>\r\n</html>\r\n)";

/// An answer whose body is @p body, which has been compressed.
std::string compressedAnswer(const QByteArray &body)
{
    return "HTTP/1.1 200 OK\r\nContent-Encoding: deflate\r\n\r\n" + body.toStdString();
}

/// In the format of zlib.
QByteArray compressed(const QByteArray &body)
{
    constexpr int lengthInFront = 4;
    return qCompress(body).mid(lengthInFront);
}

/// Provides scripts with two web servers: "$NGINX" (and "$NGINX6" in IPv6) and "$FAULT".
class FetchTest : public ProviderTest
{
protected:
    FetchTest() { EXPECT_EQ(m_nginx.problem(), QString()); }

    QString expand(const char *text) const
    {
        return QString::fromUtf8(text)
            .replace(QLatin1String("$NGINX6/"), m_nginx.urlOnIpv6(QString()))
            .replace(QLatin1String("$NGINX/"), m_nginx.url(QString()))
            .replace(QLatin1String("$FAULT"), m_fault.url());
    }

    /// Carries out a script that fetches, and waits. Returns what its callbacks were called with.
    QString fetch(const char *script)
    {
        run(QStringLiteral("results = []; ") + expand(script));
        EXPECT_TRUE(waitForAnswers()) << script;
        return run(QStringLiteral("results"));
    }

    NginxServer m_nginx;
    FaultServer m_fault;
};

} // namespace

TEST_F(FetchTest, Outcomes)
{
    m_nginx.write(QStringLiteral("plain.txt"), "plain");
    m_nginx.write(QStringLiteral("empty.txt"), "");
    m_nginx.write(QStringLiteral("gzip/zipped.txt"), "zipped");
    m_nginx.write(QStringLiteral("two words.txt"), "words");
    m_nginx.write(QStringLiteral("größe.txt"), "size");
    m_fault.answer(
        "/chunked",
        "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nin \r\n6\r\nchunks\r\n0\r\n\r\n");
    m_fault.answer("/latin1", "HTTP/1.1 200 OK\r\nContent-Type: text/plain; charset=utf-8\r\n\r\n\xE4");
    const QByteArray zipped = compressed("unzipped");
    m_fault.answer("/deflate", compressedAnswer(zipped));
    m_fault.answer("/deflate/bare", compressedAnswer(zipped.mid(2).chopped(4)));
    m_fault.answer("/deflate/damaged", compressedAnswer(zipped.chopped(1)));
    m_fault.answer("/deflate/none", compressedAnswer("unzipped"));
    m_fault.answer("/204", "HTTP/1.1 204 No Content\r\n\r\n", Ending::KeepOpen);
    m_fault.answer("/404", "HTTP/1.1 404 Gone\r\nContent-Length: 0\r\n\r\n", Ending::KeepOpen);
    m_fault.answer("/500", "HTTP/1.1 500 Oh\r\n\r\n");
    m_fault.answer("/500/body", "HTTP/1.1 500 Oh\r\n\r\nbroken");
    m_fault.answer("/302", "HTTP/1.1 302 Found\r\nLocation: /chunked\r\nContent-Length: 5\r\n\r\nmoved");
    m_fault.answer("/reset", "HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nhalf", Ending::Reset);
    m_fault.answer("/short", "HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nhalf");
    m_fault.answer("/chunk", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n9\r\nhalf");
    m_fault.answer("/header/lines", "HTTP/1.1 200 OK\r\n", Ending::Repeat,
                   "X-More: " + std::string(999, 'x') + "\r\n");
    m_fault.answer("/header/line", "HTTP/1.1 200 OK\r\n", Ending::Repeat, std::string(999, 'x'));
    m_fault.answer("/nothing", "");
    m_fault.answer("/noise", "\1\2\3\r\n\r\n\r\n");

    struct Case
    {
        const char *url;
        const char *results; ///< what the callback is called with, in order
    };
    const Case cases[] = {
        {"$NGINX/plain.txt", R"([false,"plain"])"},
        {"$NGINX6/plain.txt", R"([false,"plain"])"},
        {"$NGINX/empty.txt", R"([false,""])"},
        {"$NGINX/gzip/zipped.txt", R"([false,"zipped"])"},
        {"$NGINX/two words.txt", R"([false,"words"])"},
        {"$NGINX/größe.txt", R"([false,"size"])"},
        {"$NGINX/gzip", R"([false,"$301 Moved Permanently"])"},
        {"$NGINX/none",
         R"([true,"Error transferring $NGINX/none - server replied: Not Found"],[false,"$404 Not Found"])"},
        {"$FAULT/chunked", R"([false,"in chunks"])"},
        {"$FAULT/latin1", R"([false,"ä"])"},
        {"$FAULT/deflate", R"([false,"unzipped"])"},
        {"$FAULT/deflate/bare", R"([false,"unzipped"])"},
        {"$FAULT/deflate/damaged", R"([true,"The answer cannot be unpacked."],[false,"unzipped"])"},
        {"$FAULT/deflate/none", R"([true,"The answer cannot be unpacked."],[false,""])"},
        {"$FAULT/204", R"([false,""])"},
        {"$FAULT/404", R"([true,"Error transferring $FAULT/404 - server replied: Gone"],[false,""])"},
        {"$FAULT/500", R"([true,"Error transferring $FAULT/500 - server replied: Oh"],[false,""])"},
        {"$FAULT/500/body",
         R"([true,"Error transferring $FAULT/500/body - server replied: Oh"],[false,"broken"])"},
        {"$FAULT/302", R"([false,"moved"])"},
        {"$FAULT/reset", R"([true,"Connection closed"],[false,"half"])"},
        {"$FAULT/short", R"([true,"Connection closed"],[false,"half"])"},
        {"$FAULT/chunk", R"([true,"Connection closed"],[false,"half"])"},
        {"$FAULT/header/lines", R"([true,"The header of the answer is too long."],[false,""])"},
        {"$FAULT/header/line", R"([true,"The header of the answer is too long."],[false,""])"},
        {"$FAULT/nothing", R"([true,"Connection closed"],[false,""])"},
        {"$FAULT/noise", R"([true,"Connection closed"],[false,""])"},
        {"http://127.0.0.1:1", R"([true,"Connection refused"],[false,""])"},
        {"https://127.0.0.1", R"([true,"Host https not found"],[false,""])"},
        {"no.such.host.invalid", R"([true,"Host no.such.host.invalid not found"],[false,""])"},
        {"", R"([true,"Host  not found"],[false,""])"},
        {"http://[", R"([true,"Invalid Url"])"},
    };
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    for (const Case &c : cases) {
        QString expected = expand(c.results);
        for (const char *status : {"301 Moved Permanently", "404 Not Found"})
            expected.replace(QLatin1Char('$') + QLatin1String(status),
                             QString::fromUtf8(htmlPage).arg(QLatin1String(status)));
        EXPECT_EQ(
            fetch(qUtf8Printable(QStringLiteral("getUrl('%1', this, cb)").arg(QString::fromUtf8(c.url)))),
            QLatin1Char('[') + expected + QLatin1Char(']'))
            << c.url;
    }
    QTextCodec::setCodecForLocale(nullptr);
}

TEST_F(FetchTest, AsksOnceForTheAddressAsItIsWritten)
{
    const char *const paths[] = {"/gr%C3%B6%C3%9Fe%20und%20%2F+?a=b%20c", "/capitals", "/no-scheme"};
    for (const char *path : paths)
        m_fault.answer(path, "HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n", Ending::KeepOpen);
    EXPECT_EQ(fetch("getUrl('$FAULT/größe und %2F+?a=b c#part', this, cb)"),
              QStringLiteral("[[false,\"\"]]"));
    fetch("getUrl('$FAULT/capitals'.replace('http', 'HTTP'), this, cb)");
    fetch("getUrl('$FAULT/no-scheme'.substr(7), this, cb)");

    QStringList expected;
    for (const char *path : paths)
        expected.append(QStringLiteral("GET %1 HTTP/1.1").arg(QLatin1String(path)));
    QStringList asked;
    for (const QString &request : m_fault.requests())
        asked.append(request.section(QLatin1Char('\r'), 0, 0));
    EXPECT_EQ(asked, expected);
}

TEST_F(FetchTest, ReadsFeeds)
{
    m_nginx.write(
        QStringLiteral("news.xml"),
        "<rss><channel><title>News</title><item><title>One</title><description>First</description></item>"
        "<item/></channel></rss>");
    m_nginx.write(QStringLiteral("weather.xml"),
                  "<rss><yweather:location city='Bern'/><yweather:wind speed='2.5'/></rss>");
    EXPECT_EQ(fetch("getRSSFeed('$NGINX/news.xml', this, cb)"),
              QStringLiteral(R"([[false,[{"title":"One","description":"First"},{}],"News"]])"));
    EXPECT_EQ(fetch("getWeather('$NGINX/weather.xml', this, cb)"),
              QStringLiteral(R"([[false,{"city":"Bern","windSpeed":2.5}]])"));
    EXPECT_EQ(fetch("getRSSFeed('http://127.0.0.1:1', this, cb)"),
              QStringLiteral(R"([[true,"Connection refused"],[false,[],""]])"));
}

TEST_F(FetchTest, LongBodies)
{
    const int length = 100'000'000;
    const QByteArray content = QByteArray("0123456789abcde\n").repeated(length / 16);
    m_nginx.write(QStringLiteral("long.txt"), content);
    run(expand("getUrl('$NGINX/long.txt', this, cb)"));
    EXPECT_TRUE(waitForAnswers());
    const QString text = m_application.engine().evaluate(QStringLiteral("results.pop()[1]")).toString();
    EXPECT_TRUE(text == QLatin1String(content)) << text.size();

    m_fault.answer("/endless", "HTTP/1.1 200 OK\r\n\r\n", Ending::Repeat, std::string(1 << 16, 'x'));
    m_fault.answer("/bomb", compressedAnswer(compressed(QByteArray((256 << 20) + 1, 'x'))));
    for (const char *script : {"getUrl('$FAULT/endless', this, cb)", "getUrl('$FAULT/bomb', this, cb)"}) {
        EXPECT_EQ(fetch(script),
                  QStringLiteral(R"([[true,"The answer is longer than 256 MB."],[false,""]])"));
    }
}

TEST_F(FetchTest, CallsWithTheThisObject)
{
    EXPECT_EQ(fetch("var me = {}; getUrl('http://[', me, function() { results.push(this === me); })"),
              QStringLiteral("[true]"));
}

TEST_F(FetchTest, DoesNothingOnWrongArguments)
{
    run(QStringLiteral(R"([getUrl, getRSSFeed, getWeather].forEach(function(fetch) {
        results.push(fetch(), fetch('http://['), fetch('http://[', this), fetch('http://[', this, cb, 1),
                     fetch(5, this, cb), fetch('http://[', 'text', cb), fetch('http://[', null, cb),
                     fetch('http://[', this, 'cb'), fetch('http://[', cb, this));
    }); results = results.filter(function(r) { return r !== undefined; }))"));
    EXPECT_FALSE(m_provider.awaitsAnswers());
    EXPECT_EQ(run(QStringLiteral("results")), QStringLiteral("[]"));
    EXPECT_EQ(takeMessages(), QStringList());
}

TEST_F(FetchTest, TheThreadTakesRequestsFromItsBeginningToItsEnd)
{
    QString expected;
    for (int i = 0; i < 50; ++i) {
        FetchCallbacks callbacks(m_application);
        NetworkThread thread(callbacks);
        ASSERT_TRUE(thread.begin());
        const QScriptValue global = m_application.engine().globalObject();
        thread.post({FetchKind::RawText, QStringLiteral("http://["),
                     callbacks.add(global, global.property(QStringLiteral("cb")))});
        thread.shutdown();
        callbacks.finish();
        expected += QLatin1String(R"(,[true,"Invalid Url"])");
    }
    EXPECT_EQ(run(QStringLiteral("results")), QLatin1Char('[') + expected.mid(1) + QLatin1Char(']'));
}

TEST_F(FetchTest, UnloadsAtOnceAfterCalls)
{
    run(expand("for (var i = 0; i < 3; ++i) getUrl('$FAULT/never', this, cb)"));
    m_provider.Unload();
    const QString canceled = QStringLiteral(R"([true,"Operation canceled"],[false,""])");
    EXPECT_EQ(run(QStringLiteral("results")), QStringLiteral("[%1,%1,%1]").arg(canceled));

    run(QStringLiteral("getUrl('http://[', this, cb)"));
    EXPECT_FALSE(m_provider.awaitsAnswers());
}

TEST_F(FetchTest, ServersThatNeverAnswerStopNeitherOthersNorTheEnd)
{
    m_nginx.write(QStringLiteral("plain.txt"), "plain");
    m_fault.answer("/header", "HTTP/1.1 200 OK\r\n", Ending::Trickle, "X-More: to come\r\n");
    run(expand("for (var i = 0; i < 500; ++i) getUrl('$FAULT/' + (i % 2 ? 'header' : 'never'), this, cb)"));
    const int parallelFetches = 6; // of one server
    ASSERT_TRUE(QTest::qWaitFor([this] { return m_fault.requests().size() == parallelFetches; }, 60000));
    run(expand("getUrl('$NGINX/plain.txt', this, cb)"));
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return run(QStringLiteral("results")) != QLatin1String("[]"); }, 60000));
    EXPECT_EQ(run(QStringLiteral("results.shift()")), QStringLiteral("[false,\"plain\"]"));

    QElapsedTimer time;
    time.start();
    m_provider.Unload();
    EXPECT_LT(time.elapsed(), 1000);
    EXPECT_EQ(run(QStringLiteral("results.length")), QStringLiteral("1000"));
}
