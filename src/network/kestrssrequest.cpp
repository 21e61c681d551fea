#include "network/kestrssrequest.h"

#include "network/rssparser.h"

void KestRSSRequest::networkFinished()
{
    succeed(RSSParser::parse(takeBody()));
}
