#include "network/rssparser.h"
#include "network/weatherparser.h"
#include "network/xmlreading.h"
#include "support/processortime.h"

#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QThread>
#include <gmock/gmock.h>

#include <mutex>

namespace {

// Golden files: what scripts are to get from NAME.xml is in NAME.json beside it.

QString feedFolder()
{
    return QStringLiteral(SOURCE_DIR "/tests/network/feeds/");
}

std::vector<std::string> goldenFeeds()
{
    std::vector<std::string> feeds;
    for (const QString &kind : {QStringLiteral("rss/"), QStringLiteral("weather/")}) {
        for (const QFileInfo &file : QDir(feedFolder() + kind).entryInfoList({QStringLiteral("*.xml")}))
            feeds.push_back((kind + file.completeBaseName()).toStdString());
    }
    return feeds;
}

QByteArray contentOf(const std::string &feed, const QString &suffix)
{
    QFile file(feedFolder() + QString::fromStdString(feed) + suffix);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
    return file.readAll();
}

QJsonObject toJson(const RssFeed &feed)
{
    QJsonArray items;
    for (const RssItem &item : feed.items) {
        QJsonObject object;
        if (item.title)
            object.insert(QLatin1String("title"), *item.title);
        if (item.description)
            object.insert(QLatin1String("description"), *item.description);
        items.append(object);
    }
    return {{QStringLiteral("title"), feed.title}, {QStringLiteral("items"), items}};
}

QJsonObject toJson(const WeatherReport &report)
{
    QJsonObject object;
    for (const WeatherValue &value : report)
        object.insert(value.property, QJsonValue::fromVariant(value.value));
    return object;
}

class GoldenFeed : public testing::TestWithParam<std::string>
{
};

std::string testName(const testing::TestParamInfo<std::string> &feed)
{
    return QString::fromStdString(feed.param).replace(QLatin1Char('/'), QLatin1Char('_')).toStdString();
}

// Hostile bodies: whatever they are, they cost no more than this.
constexpr double longestReading = 5; // seconds of the processor's time
constexpr qint64 mostMemory = 300'000; // kB, most of it for the allocators of sanitizers

class ReadingThread : public QThread
{
public:
    explicit ReadingThread(QByteArray body)
        : m_body(std::move(body))
    {
        setStackSize(xmlReadingStack);
    }

    /// What was read. The lock shows the thread sanitizer that the thread had ended.
    RssFeed takeFeed()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return std::move(m_feed);
    }

protected:
    void run() override
    {
        WeatherParser::parse(m_body);
        RssFeed feed = RSSParser::parse(m_body);
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_feed = std::move(feed);
    }

private:
    const QByteArray m_body;
    std::mutex m_mutex;
    RssFeed m_feed;
};

/// The most memory that this process has had, in kB; what it has now, if that is started anew.
qint64 peakMemory(bool startAnew)
{
    QFile reset(QStringLiteral("/proc/self/clear_refs"));
    if (startAnew && reset.open(QIODevice::WriteOnly))
        reset.write("5");
    reset.close();
    QFile status(QStringLiteral("/proc/self/status"));
    EXPECT_TRUE(status.open(QIODevice::ReadOnly));
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.simplified().split(' ').at(1).toLongLong();
    }
    return 0;
}

/// With the number of the repetition for each "@".
QByteArray repeated(const QByteArray &text, int times)
{
    if (!text.contains('@'))
        return text.repeated(times);
    QByteArray result;
    for (int i = 0; i < times; ++i)
        result += QByteArray(text).replace('@', QByteArray::number(i));
    return result;
}

QByteArray feed(const QByteArray &dtd, const QByteArray &content)
{
    return "<!DOCTYPE rss [" + dtd + "]><rss><title>start</title><item/>" + content
        + "<item><title>end</title></item></rss>";
}

QByteArray entity(int length)
{
    return "<!ENTITY e '" + QByteArray(length, 'x') + "'>";
}

/// Nine entities, each ten times the one before it.
QByteArray tenfoldEntities()
{
    QByteArray dtd = "<!ENTITY e0 'ten letters'>";
    for (int i = 1; i <= 9; ++i)
        dtd += "<!ENTITY e" + QByteArray::number(i) + " '"
            + repeated("&e" + QByteArray::number(i - 1) + ";", 10) + "'>";
    return dtd;
}

/// Each twice the one before it, without a reference that can be seen as such.
QByteArray hiddenDoublings()
{
    QByteArray dtd = "<!ENTITY e0 '14 characters!'>";
    for (int i = 1; i <= 8; ++i)
        dtd += "<!ENTITY e" + QByteArray::number(i) + " '"
            + repeated("&#38;e" + QByteArray::number(i - 1) + ";", 2) + "'>";
    return dtd;
}

enum class Read { Nothing, Start, Whole };

struct HostileBody
{
    const char *name;
    Read read; ///< how much of it
    QByteArray (*make)();
};

std::ostream &operator<<(std::ostream &stream, const HostileBody &body)
{
    return stream << body.name;
}

const HostileBody hostileBodies[] = {
    {"Nested100000", Read::Whole,
     [] { return feed("", repeated("<a>", 100000) + repeated("</a>", 100000)); }},
    {"Nested1000000", Read::Start,
     [] { return feed("", repeated("<a>", 1000000) + repeated("</a>", 1000000)); }},
    {"NestedNamespaces", Read::Whole,
     [] { return feed("", repeated("<a xmlns:n@='u@'>", 10000) + repeated("</a>", 10000)); }},
    {"ExponentialEntities", Read::Nothing, [] { return feed(tenfoldEntities(), "<title>&e9;</title>"); }},
    {"LongEntityInText", Read::Start,
     [] { return feed(entity(4000), "<title>" + repeated("&e;", 100000) + "</title>"); }},
    {"LongEntityInAttribute", Read::Start,
     [] { return feed(entity(4000), "<title a='" + repeated("&e;", 100000) + "'/>"); }},
    {"HiddenEntities", Read::Start,
     [] { return feed(hiddenDoublings(), "<title>" + repeated("&e8;", 100000) + "</title>"); }},
    {"SpacesByEntities", Read::Whole,
     [] { return feed("<!ENTITY nbsp '&#160;'>", "<item>" + repeated("&nbsp;", 20000) + "</item>"); }},
    {"ManyEntities", Read::Nothing, [] { return feed(repeated("<!ENTITY e@ 'x'>", 100000), ""); }},
    {"HiddenDeclarations", Read::Nothing,
     [] { return feed("<!ENTITY % d '&#60;!ENTITY '>" + repeated("%d; e@ 'x'>", 30000), "&e1;"); }},
    {"EntitiesWithoutEnd", Read::Nothing, [] { return feed(repeated("<!ENTITY", 300000), ""); }},
    {"ElementsWithoutEnd", Read::Nothing, [] { return feed(repeated("<!ELEMENT", 300000), ""); }},
    {"NestedContentModel", Read::Nothing,
     [] { return feed("<!ELEMENT a " + repeated("(", 1000000) + 'b' + repeated(")", 1000000) + '>', ""); }},
    {"HiddenContentModel", Read::Nothing,
     [] {
         return feed("<!ENTITY % d '&#60;!ELEMENT a '>%d; " + repeated("(", 1000000) + 'b'
                         + repeated(")", 1000000) + '>',
                     "");
     }},
};

class HostileFeed : public testing::TestWithParam<HostileBody>
{
};

} // namespace

TEST_P(GoldenFeed, GivesWhatScriptsGet)
{
    const QByteArray body = contentOf(GetParam(), QStringLiteral(".xml"));
    const bool isRss = GetParam().rfind("rss/", 0) == 0;
    const QJsonObject actual = isRss ? toJson(RSSParser::parse(body)) : toJson(WeatherParser::parse(body));
    const auto expected = QJsonDocument::fromJson(contentOf(GetParam(), QStringLiteral(".json")));
    ASSERT_TRUE(expected.isObject());
    EXPECT_EQ(QJsonDocument(actual).toJson().toStdString(), expected.toJson().toStdString());
}

INSTANTIATE_TEST_SUITE_P(, GoldenFeed, testing::ValuesIn(goldenFeeds()), testName);

TEST_P(HostileFeed, IsReadInBoundedTimeAndMemory)
{
    ReadingThread thread(GetParam().make());
    const qint64 memoryBefore = peakMemory(true);
    const ProcessorTime time;
    thread.start();
    thread.wait();
    EXPECT_LT(time.seconds(), longestReading);
    EXPECT_LT(peakMemory(false) - memoryBefore, mostMemory);

    const RssFeed feed = thread.takeFeed();
    const bool isStartRead = feed.title == QLatin1String("start") && !feed.items.empty();
    const bool isEndRead = isStartRead && feed.items.back().title.value_or(QString()) == QLatin1String("end");
    EXPECT_EQ(isStartRead, GetParam().read != Read::Nothing);
    EXPECT_EQ(isEndRead, GetParam().read == Read::Whole);
}

INSTANTIATE_TEST_SUITE_P(, HostileFeed, testing::ValuesIn(hostileBodies),
                         [](const auto &body) { return std::string(body.param.name); });

TEST(RSSParser, ReadsSixteenMillionCharacters)
{
    const QByteArray start = "<rssfeed>"; // so long that the end comes between two items
    const QByteArray item = "<item/>";
    const RssFeed feed = RSSParser::parse(start + repeated(item, 3'000'000));
    EXPECT_EQ(static_cast<int>(feed.items.size()), (16'000'000 - start.size()) / item.size());
}
