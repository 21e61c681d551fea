#pragma once

#include "network/kestnetworkrequest.h"

/// A fetch of a weather feed.
class KestWeatherRequest : public KestNetworkRequest
{
    Q_OBJECT

public:
    using KestNetworkRequest::KestNetworkRequest;

    void networkFinished() override;
};
