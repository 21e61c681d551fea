#include "device/radiomanager.h"

#include "kestmainprovider/kestmessagebox.h"
#include "platform/platform.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <iterator>

namespace {

constexpr std::uint32_t wirelessLan = 1;
constexpr std::uint32_t stateOff = 0;
constexpr std::uint32_t stateOn = 1;
constexpr std::uint32_t saveStateBefore = 1;

struct Kind
{
    const char *name;
    std::uint32_t type;
};
constexpr Kind kinds[] = {{"wifi", wirelessLan}, {"phone", 2}, {"bluetooth", 3}};

struct Change
{
    std::uint32_t state;
    const char *isSoAlready;
    const char *failed; ///< goes before the device's name
};
constexpr Change switchingOff = {stateOff, QT_TRANSLATE_NOOP("KestCommandProvider", "already off"),
                                 QT_TRANSLATE_NOOP("KestCommandProvider", "Could not change state to off ")};
constexpr Change switchingOn = {stateOn, QT_TRANSLATE_NOOP("KestCommandProvider", "already on"),
                                QT_TRANSLATE_NOOP("KestCommandProvider", "Could not change state to on ")};

bool isKnown(std::uint32_t type)
{
    return std::any_of(std::begin(kinds), std::end(kinds), [type](const Kind &k) { return k.type == type; });
}

std::u16string toText(const char16_t *text)
{
    return text ? std::u16string(text) : std::u16string();
}

void tell(const char *message, const std::u16string &deviceName = {})
{
    KestMessageBox::information(nullptr, QStringLiteral("Error"),
                                QCoreApplication::translate("KestCommandProvider", message)
                                    + QString::fromStdU16String(deviceName));
}

void notifyPower(const std::u16string &deviceName, platform::PowerState state)
{
    platform::current().power().notify(deviceName, state, platform::powerByName);
}

} // namespace

RadioManager::Radio::Radio(const platform::WirelessDevice &entry)
    : deviceName(toText(entry.deviceName))
    , displayName(toText(entry.displayName))
    , state(entry.state)
    , desiredState(entry.desiredState)
    , type(entry.type)
{
}

platform::WirelessDevice RadioManager::Radio::toDevice() const
{
    return {deviceName.c_str(), displayName.c_str(), state, desiredState, type, nullptr};
}

void RadioManager::load()
{
    release();
    m_library = platform::current().wireless().load();
    using platform::WirelessFunction;
    m_isComplete = m_library && m_library->resolve(WirelessFunction::DeviceList)
        && m_library->resolve(WirelessFunction::ChangeState)
        && m_library->resolve(WirelessFunction::ReleaseList);
    refresh();
}

void RadioManager::release()
{
    m_radios.clear();
    m_list.reset();
    m_isComplete = false;
    m_library.reset();
}

bool RadioManager::isOn(const QString &name)
{
    refresh();
    const Radio *radio = find(name);
    if (!radio)
        tell(QT_TRANSLATE_NOOP("KestCommandProvider", "Device not detected"));
    return radio && radio->state == stateOn;
}

void RadioManager::switchRadio(const QString &name, bool on)
{
    refresh();
    const Radio *radio = find(name);
    if (!radio)
        return tell(QT_TRANSLATE_NOOP("KestCommandProvider", "null device"));
    const Change &change = on ? switchingOn : switchingOff;
    if (radio->state == change.state)
        return tell(change.isSoAlready);

    if (radio->type != wirelessLan) {
        if (!changeState(*radio, change.state))
            tell(change.failed, radio->deviceName);
    } else if (on) {
        notifyPower(radio->deviceName, platform::PowerState::D0);
        changeState(*radio, stateOn);
    } else {
        changeState(*radio, stateOff);
        notifyPower(radio->deviceName, platform::PowerState::D4);
    }
}

void RadioManager::refresh()
{
    if (!m_isComplete)
        return;
    m_list.reset();
    platform::WirelessDevice *head = nullptr;
    if (m_library->deviceList(head, 0) != 0)
        return;
    m_list = List(
        head, [library = m_library.get()](platform::WirelessDevice *list) { library->releaseList(list); });

    // A kind that is no longer listed keeps the radio it had; of two of a kind the later one counts.
    for (const platform::WirelessDevice *entry = head; entry; entry = entry->next) {
        if (isKnown(entry->type))
            m_radios.insert_or_assign(entry->type, Radio(*entry));
    }
}

const RadioManager::Radio *RadioManager::find(const QString &name) const
{
    const auto kind = std::find_if(std::begin(kinds), std::end(kinds),
                                   [&name](const Kind &k) { return name == QLatin1String(k.name); });
    const auto radio = kind != std::end(kinds) ? m_radios.find(kind->type) : m_radios.end();
    return radio != m_radios.end() ? &radio->second : nullptr;
}

bool RadioManager::changeState(const Radio &radio, std::uint32_t state)
{
    platform::WirelessDevice device = radio.toDevice();
    return m_library->changeState(device, state, saveStateBefore) == 0;
}
