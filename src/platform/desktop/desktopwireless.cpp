#include "platform/desktop/desktopwireless.h"

#include <algorithm>
#include <list>

namespace platform {

namespace {

using Radio = HardwareState::Radio;

constexpr std::int32_t succeeded = 0;
constexpr std::int32_t failed = 1;

std::uint32_t typeOf(Radio radio)
{
    return static_cast<std::uint32_t>(radio) + 1;
}

std::optional<Radio> radioOfType(std::uint32_t type)
{
    for (const Radio radio : HardwareState::radios) {
        if (typeOf(radio) == type)
            return radio;
    }
    return std::nullopt;
}

/// The records that one call of deviceList() handed out, and the texts that they point to.
class DeviceList
{
public:
    explicit DeviceList(HardwareState &hardware)
    {
        for (const Radio radio : HardwareState::radios) {
            if (const auto state = hardware.radioState(radio))
                add(hardware, radio, *state);
        }
    }

    WirelessDevice *head() { return m_entries.empty() ? nullptr : &m_entries.front().device; }

private:
    struct Entry
    {
        std::u16string deviceName;
        std::u16string displayName;
        WirelessDevice device;
    };

    void add(HardwareState &hardware, Radio radio, std::uint32_t state)
    {
        const bool isFirst = m_entries.empty();
        WirelessDevice *last = isFirst ? nullptr : &m_entries.back().device;
        Entry &entry = m_entries.emplace_back();
        entry.deviceName = hardware.radioText(radio, QStringLiteral("DeviceName")).toStdU16String();
        entry.displayName = hardware.radioText(radio, QStringLiteral("DisplayName")).toStdU16String();
        entry.device = {
            entry.deviceName.c_str(), entry.displayName.c_str(), state, state, typeOf(radio), nullptr};
        if (last)
            last->next = &entry.device;
    }

    std::list<Entry> m_entries; // whose elements stay where they are
};

class DesktopWirelessLibrary : public WirelessLibrary
{
public:
    explicit DesktopWirelessLibrary(HardwareState &hardware)
        : m_hardware(hardware)
    {
    }

    bool resolve(WirelessFunction) override { return true; }

    std::int32_t deviceList(WirelessDevice *&head, std::uint32_t) override
    {
        head = m_lists.emplace_back(m_hardware).head();
        if (!head)
            m_lists.pop_back();
        return succeeded;
    }

    std::int32_t changeState(WirelessDevice &device, std::uint32_t state, std::uint32_t save) override
    {
        const auto radio = radioOfType(device.type);
        const auto before = radio ? m_hardware.radioState(*radio) : std::nullopt;
        if (!before || state > 1)
            return failed;
        if (save == 1 && !m_hardware.setRadioNumber(*radio, QStringLiteral("SavedState"), *before))
            return failed;
        return m_hardware.setRadioState(*radio, state) ? succeeded : failed;
    }

    void releaseList(WirelessDevice *head) override
    {
        m_lists.remove_if([head](DeviceList &list) { return list.head() == head; });
    }

private:
    HardwareState &m_hardware;
    std::list<DeviceList> m_lists;
};

} // namespace

DesktopWireless::DesktopWireless(HardwareState &hardware)
    : m_hardware(hardware)
{
}

std::unique_ptr<WirelessLibrary> DesktopWireless::load()
{
    return std::make_unique<DesktopWirelessLibrary>(m_hardware);
}

DesktopBluetooth::DesktopBluetooth(HardwareState &hardware)
    : m_hardware(hardware)
{
}

std::int32_t DesktopBluetooth::setMode(BluetoothMode mode)
{
    return m_hardware.setRadioState(Radio::Bluetooth, static_cast<quint32>(mode)) ? succeeded : failed;
}

DesktopPower::DesktopPower(HardwareState &hardware)
    : m_hardware(hardware)
{
}

std::int32_t DesktopPower::notify(const std::u16string &device, PowerState state, std::uint32_t flags)
{
    const QString name = QString::fromStdU16String(device);
    const auto *radio = std::find_if(
        HardwareState::radios.begin(), HardwareState::radios.end(), [this, &name](Radio candidate) {
            return m_hardware.radioText(candidate, QStringLiteral("DeviceName")) == name;
        });
    if (flags != powerByName || name.isEmpty() || radio == HardwareState::radios.end())
        return failed;
    return m_hardware.setRadioNumber(*radio, QStringLiteral("Power"), static_cast<quint32>(state)) ? succeeded
                                                                                                   : failed;
}

} // namespace platform
