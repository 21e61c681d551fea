#include "contracts/backend.h"
#include "contracts/texts.h"

#include "platform/wireless.h"

#include <gmock/gmock.h>

using namespace platform;

namespace {

class WirelessContract : public testing::Test
{
protected:
    WirelessContract()
    {
        for (const auto function :
             {WirelessFunction::DeviceList, WirelessFunction::ChangeState, WirelessFunction::ReleaseList})
            EXPECT_TRUE(m_library->resolve(function));
    }

    /// Type, state and names of each radio.
    std::vector<std::string> radios()
    {
        std::vector<std::string> result;
        WirelessDevice *head = nullptr;
        EXPECT_EQ(m_library->deviceList(head, 0), 0);
        for (const WirelessDevice *device = head; device; device = device->next)
            result.push_back(std::to_string(device->type) + ' ' + std::to_string(device->state) + ' '
                             + contracts::shown(std::u16string(device->deviceName)) + ' '
                             + contracts::shown(std::u16string(device->displayName)));
        m_library->releaseList(head);
        return result;
    }

    std::string states()
    {
        std::string result;
        for (const std::string &radio : radios())
            result += radio[2];
        return result;
    }

    const std::unique_ptr<Platform> m_platform = contracts::makePlatform();
    const std::unique_ptr<WirelessLibrary> m_library = m_platform->wireless().load();
};

} // namespace

TEST_F(WirelessContract, ListsTheRadios)
{
    EXPECT_THAT(
        radios(),
        testing::UnorderedElementsAre("1 1 WLAN1 Wi-Fi", "2 1 PHONE1 Phone", "3 0 BLUETOOTH1 Bluetooth"));
    m_library->releaseList(nullptr);
}

TEST_F(WirelessContract, SwitchesTheRadioOfACopiedEntry)
{
    const struct
    {
        const char16_t *name;
        std::uint32_t type;
        std::uint32_t state;
        bool succeeds;
        const char *states;
    } cases[] = {
        {u"WLAN1", 1, 0, true, "010"},   {u"PHONE1", 2, 0, true, "000"},
        {u"PHONE1", 2, 0, true, "000"},  {u"BLUETOOTH1", 3, 1, true, "001"},
        {u"WLAN1", 1, 1, true, "101"},   {u"BLUETOOTH1", 3, 7, false, "101"},
        {u"OTHER1", 4, 0, false, "101"},
    };
    for (const auto &c : cases) {
        WirelessDevice copy{c.name, u"", 1, 1, c.type, nullptr};
        EXPECT_EQ(m_library->changeState(copy, c.state, 1) == 0, c.succeeds) << c.type;
        EXPECT_EQ(states(), c.states) << c.type;
    }
}

TEST_F(WirelessContract, SetsTheModeOfBluetooth)
{
    for (const BluetoothMode mode :
         {BluetoothMode::Discoverable, BluetoothMode::Connectable, BluetoothMode::Off}) {
        EXPECT_EQ(m_platform->bluetooth().setMode(mode), 0);
        EXPECT_EQ(states(), "11" + std::to_string(static_cast<int>(mode)));
    }
}

TEST_F(WirelessContract, NotifiesADevicesPower)
{
    const struct
    {
        std::u16string device;
        std::uint32_t flags;
        bool succeeds;
    } cases[] = {{u"WLAN1", powerByName, true}, {u"OTHER1", powerByName, false}, {u"WLAN1", 0, false}};
    for (const auto &c : cases)
        for (const PowerState state : {PowerState::D4, PowerState::D0})
            EXPECT_EQ(m_platform->power().notify(c.device, state, c.flags) == 0, c.succeeds)
                << contracts::shown(c.device) << ' ' << c.flags;
}
