#pragma once

#include <QtCore/QString>

#include <optional>
#include <vector>

/// An item of an RSS feed. What the feed does not say of it is missing.
struct RssItem
{
    std::optional<QString> title;
    std::optional<QString> description;
};

/// An RSS feed, as far as scripts are told of it.
struct RssFeed
{
    QString title; ///< empty if there is none
    std::vector<RssItem> items; ///< in the document's order
};
