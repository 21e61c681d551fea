#pragma once

#include "network/kestnetworkrequest.h"

/// A fetch of an RSS feed.
class KestRSSRequest : public KestNetworkRequest
{
    Q_OBJECT

public:
    KestRSSRequest(const QUrl &url, FetchId fetch, NetworkProcessor &processor);

    void networkFinished() override;
};
