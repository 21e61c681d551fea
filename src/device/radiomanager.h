#pragma once

#include "platform/wireless.h"

#include <QtCore/QString>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

/// The device's radios, from the provider's start to its stop. They are read afresh for each question and
/// each change. What goes wrong is shown to the user, in a message box titled "Error". GUI thread only.
///
/// A radio is named "wifi", "phone" or "bluetooth", in exactly these letters; by any other name none is
/// found.
class RadioManager
{
public:
    /// Loads the radio library and its entry points. A missing library is no error: there are no radios then.
    void load();

    /// Gives the list of radios back and frees the library.
    void release();

    /// Whether a radio is on. One that is discoverable counts as off.
    bool isOn(const QString &name);

    /// Switches a radio on or off. Of a wireless LAN that does not switch nothing is told.
    void switchRadio(const QString &name, bool on);

private:
    /// A copy of what the library's list tells about a radio, so that it outlives the list.
    struct Radio
    {
        explicit Radio(const platform::WirelessDevice &entry);

        /// The same for the library. It refers to this radio's names.
        platform::WirelessDevice toDevice() const;

        std::u16string deviceName;
        std::u16string displayName;
        std::uint32_t state;
        std::uint32_t desiredState;
        std::uint32_t type;
    };

    /// Gives itself back to its library.
    using List = std::unique_ptr<platform::WirelessDevice, std::function<void(platform::WirelessDevice *)>>;

    void refresh();
    const Radio *find(const QString &name) const;
    bool changeState(const Radio &radio, std::uint32_t state);

    std::unique_ptr<platform::WirelessLibrary> m_library;
    bool m_isComplete = false; ///< the library has all entry points
    List m_list; ///< goes before its library
    std::map<std::uint32_t, Radio> m_radios; ///< by type
};
