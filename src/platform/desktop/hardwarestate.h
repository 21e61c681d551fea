#pragma once

#include "platform/desktop/registrystore.h"
#include "platform/soundsettings.h"

#include <QtCore/QString>

#include <array>
#include <optional>

namespace platform {

/// The simulated device's radios, sound profile and data connection.
///
/// They are registry values, so that every process sees and may watch them: "State" below
/// HKEY_LOCAL_MACHINE\System\Radios\WiFi, ...\Phone and ...\Bluetooth, "Profile" in
/// HKEY_CURRENT_USER\ControlPanel\Sound, "Connected" in HKEY_LOCAL_MACHINE\System\Network. A state of the
/// wrong type counts as missing. A radio whose key or state is missing is not in the device. Any thread.
class HardwareState
{
public:
    enum class Radio {
        Wifi,
        Phone,
        Bluetooth,
    };
    static constexpr std::array<Radio, 3> radios{Radio::Wifi, Radio::Phone, Radio::Bluetooth};

    explicit HardwareState(RegistryStore &store);

    /// 0 off, 1 on, 2 discoverable; nothing if the device has no such radio.
    std::optional<quint32> radioState(Radio radio);

    /// False if the device has no such radio or its state cannot be written.
    bool setRadioState(Radio radio, quint32 state);

    /// A text value of the radio's key, such as "DeviceName"; empty if it is missing.
    QString radioText(Radio radio, const QString &name);

    /// Another number in the radio's key, such as "SavedState".
    bool setRadioNumber(Radio radio, const QString &name, quint32 number);

    /// Nothing if it cannot be read.
    std::optional<SoundType> sound();

    /// False if it cannot be written.
    bool setSound(SoundType type);

    /// Whether a data connection can be made: true unless it was switched off.
    bool isConnected();

    /// False if it cannot be written.
    bool setConnected(bool connected);

private:
    std::optional<RegistryValue> value(RegistryRoot root, const QString &path, const QString &name);
    std::optional<quint32> number(RegistryRoot root, const QString &path, const QString &name);
    bool setNumber(RegistryRoot root, const QString &path, const QString &name, quint32 number);

    RegistryStore &m_store;
};

} // namespace platform
