#include "contracts/backend.h"
#include "windows/calllog.h"
#include "windows/resources.h"

#include "platform/wireless.h"

#include <gmock/gmock.h>
#include <windows.h>

using namespace platform;

namespace {

class WirelessTest : public testing::Test
{
protected:
    std::unique_ptr<WirelessLibrary> load()
    {
        auto library = m_platform->wireless().load();
        for (const WirelessFunction function : functions)
            EXPECT_TRUE(library && library->resolve(function));
        return library;
    }

    static constexpr WirelessFunction functions[] = {
        WirelessFunction::DeviceList, WirelessFunction::ChangeState, WirelessFunction::ReleaseList};
    const std::unique_ptr<Platform> m_platform = contracts::makePlatform();
    Bluetooth &m_bluetooth = m_platform->bluetooth();
    DevicePower &m_power = m_platform->power();
    WirelessDevice m_device{u"PHONE1", u"", 1, 1, 2, nullptr};
    WirelessDevice *m_head = nullptr;
};

} // namespace

TEST_F(WirelessTest, PassesArgumentsOnAndFailuresBack)
{
    CallLog log;
    const auto library = load();
    EXPECT_EQ(library->deviceList(m_head, 5), 0);
    EXPECT_EQ(library->changeState(m_device, 0, 1), 0);
    library->releaseList(m_head);
    library->releaseList(nullptr);
    EXPECT_EQ(m_bluetooth.setMode(BluetoothMode::Discoverable), 0);
    EXPECT_EQ(m_power.notify(u"WLAN1", PowerState::D4, powerByName), 0);
    EXPECT_THAT(log.take(),
                testing::ElementsAre("ossvcs 276(5)", "ossvcs 273(PHONE1, 0, 1)", "ossvcs 280(WLAN1)",
                                     "BTHUTIL 1(2)", "coredll DevicePowerNotify(WLAN1, 4, 1)"));

    const FailingCalls failing({"ossvcs 276", "ossvcs 273", "BTHUTIL 1"});
    EXPECT_EQ(library->deviceList(m_head, 0), ERROR_GEN_FAILURE);
    EXPECT_EQ(library->changeState(m_device, 0, 1), ERROR_GEN_FAILURE);
    EXPECT_EQ(m_bluetooth.setMode(BluetoothMode::Discoverable), ERROR_GEN_FAILURE);
    EXPECT_EQ(m_power.notify(u"OTHER1", PowerState::D4, powerByName), ERROR_FILE_NOT_FOUND);
}

TEST_F(WirelessTest, WhatIsMissingAnswersWithFailure)
{
    libraries::useNone();
    EXPECT_FALSE(m_platform->wireless().load());
    EXPECT_NE(m_bluetooth.setMode(BluetoothMode::Off), 0);
    EXPECT_NE(m_power.notify(u"WLAN1", PowerState::D0, powerByName), 0);

    libraries::useEmpty({L"BTHUTIL.dll", L"coredll.dll", L"ossvcs.dll"});
    EXPECT_NE(m_bluetooth.setMode(BluetoothMode::Off), 0);
    EXPECT_NE(m_power.notify(u"WLAN1", PowerState::D0, powerByName), 0);
    const auto library = m_platform->wireless().load();
    ASSERT_TRUE(library);
    EXPECT_NE(library->changeState(m_device, 0, 1), 0) << "not resolved yet";
    for (const WirelessFunction function : functions)
        EXPECT_EQ(library->resolve(function), function == WirelessFunction::ChangeState);
    EXPECT_NE(library->deviceList(m_head, 0), 0);
    library->releaseList(&m_device);
}

TEST_F(WirelessTest, UnloadsTheLibraryAndKeepsNothing)
{
    auto loaded = load(); // which makes loading it again ten times as fast
    expectNoLeak([this] {
        const auto library = load();
        library->deviceList(m_head, 0);
        library->changeState(*m_head, 1, 0);
        library->releaseList(m_head);
        m_bluetooth.setMode(BluetoothMode::Off);
        m_power.notify(u"WLAN1", PowerState::D0, powerByName);
    });
    loaded.reset();
    EXPECT_FALSE(GetModuleHandleW(L"ossvcs.dll"));
}
