#include "network/rssparser.h"

#include <QtXml/QXmlInputSource>
#include <QtXml/QXmlSimpleReader>
#include <benchmark/benchmark.h>

namespace {

constexpr int itemCount = 20000;
constexpr int repetitions = 5;

/// 3 MB, as what is told of each item is short.
const QByteArray &bodyOf20000Items()
{
    static const QByteArray body = [] {
        QByteArray text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<rss version=\"2.0\"><channel>"
                          "<title>All of it</title><link>http://n.org/</link><description>News</description>";
        for (int i = itemCount; i < 2 * itemCount; ++i) {
            const QByteArray number = QByteArray::number(i);
            text += "<item><title>Story " + number + "</title><link>http://n.org/" + number
                + "</link><description>Told &amp; done</description><pubDate>6 Sep 2010</pubDate><guid>"
                + number + "</guid></item>\n";
        }
        return text + "</channel></rss>\n";
    }();
    return body;
}

void parseRssOf20000Items(benchmark::State &state)
{
    const QByteArray &body = bodyOf20000Items();
    for (auto _ : state) {
        const RssFeed feed = RSSParser::parse(body);
        if (feed.items.size() != itemCount || feed.items.back().title != QLatin1String("Story 39999"))
            state.SkipWithError("not all items were read");
    }
    state.counters["MB"] = static_cast<double>(body.size()) / (1 << 20);
}

void readXmlOf20000Items(benchmark::State &state)
{
    const QByteArray &body = bodyOf20000Items();
    for (auto _ : state) {
        QXmlInputSource source;
        source.setData(body);
        QXmlDefaultHandler handler;
        QXmlSimpleReader reader;
        reader.setContentHandler(&handler);
        if (!reader.parse(source))
            state.SkipWithError("the body is no XML");
    }
}

} // namespace

BENCHMARK(parseRssOf20000Items)->Repetitions(repetitions)->Unit(benchmark::kMillisecond);
BENCHMARK(readXmlOf20000Items)->Repetitions(repetitions)->Unit(benchmark::kMillisecond);
