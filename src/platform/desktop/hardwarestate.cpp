#include "platform/desktop/hardwarestate.h"

#include "platform/desktop/registrydata.h"

namespace platform {

namespace {

struct Place
{
    RegistryRoot root;
    QLatin1String path;
    QLatin1String name;
};

const Place soundPlace{RegistryRoot::CurrentUser, QLatin1String("ControlPanel\\Sound"),
                       QLatin1String("Profile")};
const Place connectionPlace{RegistryRoot::LocalMachine, QLatin1String("System\\Network"),
                            QLatin1String("Connected")};

const QLatin1String stateName("State");

QString radioPath(HardwareState::Radio radio)
{
    static const QLatin1String names[] = {QLatin1String("WiFi"), QLatin1String("Phone"),
                                          QLatin1String("Bluetooth")};
    return QLatin1String("System\\Radios\\") + names[static_cast<std::size_t>(radio)];
}

} // namespace

HardwareState::HardwareState(RegistryStore &store)
    : m_store(store)
{
}

std::optional<quint32> HardwareState::radioState(Radio radio)
{
    return number(RegistryRoot::LocalMachine, radioPath(radio), stateName);
}

bool HardwareState::setRadioState(Radio radio, quint32 state)
{
    return setRadioNumber(radio, stateName, state);
}

QString HardwareState::radioText(Radio radio, const QString &name)
{
    const auto found = value(RegistryRoot::LocalMachine, radioPath(radio), name);
    if (!found || found->type != RegistryType::string)
        return QString();
    const QString text = toUtf16(found->data);
    return text.left(text.indexOf(QChar(QChar::Null)));
}

bool HardwareState::setRadioNumber(Radio radio, const QString &name, quint32 number)
{
    return radioState(radio) && setNumber(RegistryRoot::LocalMachine, radioPath(radio), name, number);
}

std::optional<SoundType> HardwareState::sound()
{
    const auto type = number(soundPlace.root, soundPlace.path, soundPlace.name);
    return type ? std::make_optional(static_cast<SoundType>(*type)) : std::nullopt;
}

bool HardwareState::setSound(SoundType type)
{
    return setNumber(soundPlace.root, soundPlace.path, soundPlace.name, static_cast<quint32>(type));
}

bool HardwareState::isConnected()
{
    return number(connectionPlace.root, connectionPlace.path, connectionPlace.name).value_or(1) != 0;
}

bool HardwareState::setConnected(bool connected)
{
    return setNumber(connectionPlace.root, connectionPlace.path, connectionPlace.name, connected ? 1 : 0);
}

std::optional<RegistryValue> HardwareState::value(RegistryRoot root, const QString &path, const QString &name)
{
    const auto key = m_store.find(root, path);
    return key ? m_store.value(*key, name) : std::nullopt;
}

std::optional<quint32> HardwareState::number(RegistryRoot root, const QString &path, const QString &name)
{
    const auto found = value(root, path, name);
    return found ? numberIn(*found) : std::nullopt;
}

bool HardwareState::setNumber(RegistryRoot root, const QString &path, const QString &name, quint32 number)
{
    const auto key = m_store.findOrMake(root, path);
    return key && m_store.setValue(*key, numberValue(name, number));
}

} // namespace platform
