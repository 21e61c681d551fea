#pragma once

#include "network/kestnetworkrequest.h"

/// A fetch of text.
class KestRawRequest : public KestNetworkRequest
{
    Q_OBJECT

public:
    using KestNetworkRequest::KestNetworkRequest;

    void networkFinished() override;
};
