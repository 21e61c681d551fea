#pragma once

#include "support/fakeoutlook.h"
#include "support/providertest.h"

/// A provider that is connected with a store of the test's own, at half past twelve on 17 November 2009.
class OutlookTest : public ProviderTest
{
protected:
    OutlookTest()
        : m_clock(m_platform->device.clock())
    {
        m_clock.now = QDateTime(QDate(2009, 11, 17), QTime(12, 30));
        m_platform->outlookInForce = &m_outlook;
        m_platform->clockInForce = &m_clock;
        connectAgain();
    }

    ~OutlookTest() override
    {
        m_platform->outlookInForce = nullptr;
        connectAgain(); // the store of this test's goes before the provider
    }

    /// As at the next start.
    void connectAgain()
    {
        m_provider.Unload();
        m_provider.BeginInitialize();
        m_outlook.takeCalls();
    }

    FakeOutlook m_outlook;
    FakeClock m_clock;
};
