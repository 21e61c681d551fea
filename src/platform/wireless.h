#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace platform {

/// One radio in the list of the wireless library, which owns the record and what it points to.
struct WirelessDevice
{
    const char16_t *deviceName = nullptr; ///< the driver's name, for power notifications and messages
    const char16_t *displayName = nullptr;
    std::uint32_t state = 0; ///< 0 off, 1 on; Bluetooth also 2, discoverable
    std::uint32_t desiredState = 0;
    std::uint32_t type = 0; ///< 1 wireless LAN, 2 phone, 3 Bluetooth
    WirelessDevice *next = nullptr;
};

/// The entry points of the wireless library, by their ordinals.
enum class WirelessFunction {
    ChangeState = 273,
    DeviceList = 276,
    ReleaseList = 280,
};

/// The wireless library while it is loaded; its destructor unloads it (FreeLibrary). GUI thread only.
class WirelessLibrary
{
public:
    virtual ~WirelessLibrary() = default;

    /// Looks an entry point up (GetProcAddressW by ordinal); false if the library lacks it. Only entry points
    /// that were found may be called.
    virtual bool resolve(WirelessFunction function) = 0;

    /// Fills @p head with a fresh list and returns 0, or returns an error code. The caller gives the list
    /// back with releaseList() while the library is still loaded.
    virtual std::int32_t deviceList(WirelessDevice *&head, std::uint32_t flags) = 0;

    /// Switches a radio: 0 off, 1 on. @p save 1 saves the state before the change. The device is known by its
    /// names and type, so a copy of an entry will do. Returns 0 on success.
    virtual std::int32_t changeState(WirelessDevice &device, std::uint32_t state, std::uint32_t save) = 0;

    /// Gives back a list that deviceList() has filled, which frees its records and what they point to. Null
    /// is an empty list.
    virtual void releaseList(WirelessDevice *head) = 0;
};

/// Loads the wireless library (ossvcs.dll). GUI thread only.
class Wireless
{
public:
    virtual ~Wireless() = default;

    /// Null if the system has no such library (LoadLibraryW).
    virtual std::unique_ptr<WirelessLibrary> load() = 0;
};

/// Modes of the Bluetooth radio.
enum class BluetoothMode : std::uint32_t {
    Off = 0,
    Connectable = 1,
    Discoverable = 2,
};

/// The Bluetooth utility library (BTHUTIL.dll). GUI thread only.
class Bluetooth
{
public:
    virtual ~Bluetooth() = default;

    /// Sets the mode (ordinal 1). Returns 0 on success; without the library an error code.
    virtual std::int32_t setMode(BluetoothMode mode) = 0;
};

/// Power states of a device.
enum class PowerState : std::int32_t {
    D0 = 0, ///< full power
    D4 = 4, ///< off
};

/// Flag: the device is named by its name (POWER_NAME).
constexpr std::uint32_t powerByName = 1;

/// The power manager. GUI thread only.
class DevicePower
{
public:
    virtual ~DevicePower() = default;

    /// Asks that a device go into a power state (DevicePowerNotify). Returns 0 on success.
    virtual std::int32_t notify(const std::u16string &device, PowerState state, std::uint32_t flags) = 0;
};

} // namespace platform
