#pragma once

#include "network/rssfeed.h"
#include "network/weatherreport.h"

#include <QtCore/QString>

#include <variant>

/// What a fetch makes of the body that it gets.
enum class FetchKind : qint32 {
    RawText = 1,
    Rss = 2,
    Weather = 3,
};

/// Stands for a fetch, its callback and the callback's object where script values may not go: on the network
/// thread. Never used twice.
using FetchId = quint64;

/// What a script asks for.
struct FetchRequest
{
    FetchKind kind = FetchKind::RawText;
    QString url; ///< as the script passed it, perhaps without its "http://"
    FetchId fetch = 0;
};

struct FetchFailure
{
    QString message;
};

using FetchResult = std::variant<FetchFailure, QString, RssFeed, WeatherReport>;

/// Something to tell a script about its fetch.
struct FetchOutcome
{
    FetchId fetch = 0;
    FetchResult result;
    bool isLast = true; ///< false: a result will follow this failure
};
