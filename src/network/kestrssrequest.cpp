#include "network/kestrssrequest.h"

#include "network/rssparser.h"

KestRSSRequest::KestRSSRequest(const QUrl &url, FetchId fetch, NetworkProcessor &processor)
    : KestNetworkRequest(url, fetch, processor)
{
}

void KestRSSRequest::networkFinished()
{
    succeed(RSSParser::parse(takeBody()));
}
