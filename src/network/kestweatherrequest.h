#pragma once

#include "network/kestnetworkrequest.h"

/// A fetch of a weather feed.
class KestWeatherRequest : public KestNetworkRequest
{
    Q_OBJECT

public:
    KestWeatherRequest(const QUrl &url, FetchId fetch, NetworkProcessor &processor);

    void networkFinished() override;
};
