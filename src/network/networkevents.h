#pragma once

#include "network/fetch.h"

#include <QtCore/QEvent>

/// Asks the NetworkProcessor for a fetch.
class BeginRequestEvent : public QEvent
{
public:
    static constexpr QEvent::Type eventType = static_cast<QEvent::Type>(1001);

    explicit BeginRequestEvent(FetchRequest request);
    ~BeginRequestEvent() override;

    FetchRequest takeRequest();

private:
    FetchRequest m_request;
};

/// Asks the NetworkProcessor to abort all fetches and to end its thread.
class ShutdownEvent : public QEvent
{
public:
    static constexpr QEvent::Type eventType = static_cast<QEvent::Type>(1002);

    ShutdownEvent();
    ~ShutdownEvent() override;
};
