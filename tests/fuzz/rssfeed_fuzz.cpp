#include "fuzz/barereader.h"

#include <network/rssparser.h>

#include <algorithm>

void tryInput(const QByteArray &body)
{
    const RssFeed feed = RSSParser::parse(body);
    RssFeed expected;
    RSSParser parser(expected);
    readBare(body, parser);
    require(feed.title == expected.title, "the title is what Qt's reader gives by default");
    require(std::equal(feed.items.begin(), feed.items.end(), expected.items.begin(), expected.items.end(),
                       [](const RssItem &left, const RssItem &right) {
                           return left.title == right.title && left.description == right.description;
                       }),
            "the items are what Qt's reader gives by default");
}
