#include "network/rssparser.h"

#include "network/xmlreading.h"

RssFeed RSSParser::parse(const QByteArray &body)
{
    RssFeed feed;
    RSSParser parser(feed);
    readXml(body, parser);
    return feed;
}

RSSParser::RSSParser(RssFeed &feed)
    : m_feed(feed)
{
}

bool RSSParser::startElement(const QString &, const QString &, const QString &qualifiedName,
                             const QXmlAttributes &)
{
    const QString name = qualifiedName.toLower();
    if (name == QLatin1String("item")) {
        m_inItem = true;
        m_inTitle = false;
        m_inDescription = false;
        m_feed.items.emplace_back();
    } else if (name == QLatin1String("title")) {
        m_inTitle = true;
    } else if (name == QLatin1String("description")) {
        m_inDescription = true;
    }
    return true;
}

bool RSSParser::endElement(const QString &, const QString &, const QString &qualifiedName)
{
    const QString name = qualifiedName.toLower();
    if (name == QLatin1String("item"))
        m_inItem = false;
    else if (name == QLatin1String("title"))
        m_inTitle = false;
    else if (name == QLatin1String("description"))
        m_inDescription = false;
    return true;
}

bool RSSParser::characters(const QString &text)
{
    // Of a text that the reader delivers in pieces the last one stays.
    if (m_inItem && m_inTitle)
        m_feed.items.back().title = text;
    else if (m_inItem && m_inDescription)
        m_feed.items.back().description = text;
    else if (m_inTitle)
        m_feed.title = text;
    return true;
}
