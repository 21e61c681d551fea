#pragma once

#include "network/kestnetworkrequest.h"

/// A fetch of an RSS feed.
class KestRSSRequest : public KestNetworkRequest
{
    Q_OBJECT

public:
    using KestNetworkRequest::KestNetworkRequest;

    void networkFinished() override;
};
