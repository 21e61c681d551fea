#pragma once

#include "network/kestnetworkrequest.h"

/// A fetch of text.
class KestRawRequest : public KestNetworkRequest
{
    Q_OBJECT

public:
    KestRawRequest(const QUrl &url, FetchId fetch, NetworkProcessor &processor);

    void networkFinished() override;
};
