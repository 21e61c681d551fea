#pragma once

#include "network/rssfeed.h"

#include <QtXml/QXmlDefaultHandler>

/// Collects the titles and descriptions of an RSS feed. Knows elements by name alone, in capitals or not, a
/// namespace prefix being part of the name.
class RSSParser : public QXmlDefaultHandler
{
public:
    /// What the feed in @p body says, up to the point where it is no XML. See readXml() for limits and stack.
    static RssFeed parse(const QByteArray &body);

    /// Fills @p feed, which has to outlive the parser.
    explicit RSSParser(RssFeed &feed);

    bool startElement(const QString &namespaceUri, const QString &localName, const QString &qualifiedName,
                      const QXmlAttributes &attributes) override;
    bool endElement(const QString &namespaceUri, const QString &localName,
                    const QString &qualifiedName) override;
    bool characters(const QString &text) override;

private:
    RssFeed &m_feed;
    bool m_inItem = false;
    bool m_inTitle = false;
    bool m_inDescription = false;
};
