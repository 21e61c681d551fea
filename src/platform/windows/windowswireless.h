#pragma once

#include "platform/windows/latelibrary.h"
#include "platform/wireless.h"

namespace platform {

/// The wireless library of a device. Its records are handed through as they are.
class WindowsWireless : public Wireless
{
public:
    std::unique_ptr<WirelessLibrary> load() override;
};

class WindowsBluetooth : public Bluetooth
{
public:
    std::int32_t setMode(BluetoothMode mode) override;

private:
    LateLibrary m_library{L"BTHUTIL.dll"};
};

/// The power manager, which devices have in coredll.dll.
class WindowsPower : public DevicePower
{
public:
    std::int32_t notify(const std::u16string &device, PowerState state, std::uint32_t flags) override;

private:
    LateLibrary m_library{L"coredll.dll"};
};

} // namespace platform
