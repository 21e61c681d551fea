#pragma once

#include "platform/desktop/hardwarestate.h"
#include "platform/wireless.h"

namespace platform {

/// The wireless library of the simulated device: lists the radios that HardwareState knows, and switches them
/// there. A saved state goes to "SavedState" in the radio's key.
class DesktopWireless : public Wireless
{
public:
    explicit DesktopWireless(HardwareState &hardware);

    std::unique_ptr<WirelessLibrary> load() override;

private:
    HardwareState &m_hardware;
};

/// Sets the state of the simulated Bluetooth radio.
class DesktopBluetooth : public Bluetooth
{
public:
    explicit DesktopBluetooth(HardwareState &hardware);

    std::int32_t setMode(BluetoothMode mode) override;

private:
    HardwareState &m_hardware;
};

/// Keeps the power state of a simulated radio as "Power" in the radio's key.
class DesktopPower : public DevicePower
{
public:
    explicit DesktopPower(HardwareState &hardware);

    std::int32_t notify(const std::u16string &device, PowerState state, std::uint32_t flags) override;

private:
    HardwareState &m_hardware;
};

} // namespace platform
