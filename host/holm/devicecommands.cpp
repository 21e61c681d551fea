#include "devicecommands.h"

#include "commandoptions.h"
#include "exitstatus.h"

#include <platform/desktop/hardwarestate.h>

#include <algorithm>
#include <iostream>
#include <iterator>

namespace {

using platform::HardwareState;
using platform::RegistryStore;
using platform::SoundType;

/// The hardware of a device, and what the user wants of it.
struct Request
{
    const DeviceCommand &command;
    QStringList arguments;
    RegistryStore store;
    HardwareState hardware;

    Request(const DeviceCommand &deviceCommand, const CommandOptions &options)
        : command(deviceCommand)
        , arguments(options.arguments)
        , store(options.device)
        , hardware(store)
    {
    }
};

int run(const DeviceCommand &command, const QStringList &commandLine, int (*execute)(Request &request))
{
    return runDeviceCommand(command, commandLine, [&](const CommandOptions &options) {
        Request request(command, options);
        return execute(request);
    });
}

int tellState(const QString &state)
{
    std::cout << state.toStdString() << std::endl;
    return ExitStatus::ok;
}

// If reading gave nothing, for want of a value or because of a failure.
int tellFailure(const Request &request, const QString &missing)
{
    const QString problem = request.store.problem();
    return tellFailure(problem.isEmpty() ? missing : problem);
}

/// A state by its name.
template <class State>
struct Named
{
    QLatin1String name;
    State state;
};

template <class Table>
auto findName(const Table &table, const QString &name)
{
    const auto *found = std::find_if(std::begin(table), std::end(table),
                                     [&name](const auto &entry) { return entry.name == name; });
    return found == std::end(table) ? nullptr : found;
}

const Named<HardwareState::Radio> radios[] = {
    {QLatin1String("wifi"), HardwareState::Radio::Wifi},
    {QLatin1String("phone"), HardwareState::Radio::Phone},
    {QLatin1String("bluetooth"), HardwareState::Radio::Bluetooth},
};

constexpr quint32 discoverable = 2;
const Named<quint32> radioStates[] = {
    {QLatin1String("off"), 0},
    {QLatin1String("on"), 1},
    {QLatin1String("discoverable"), discoverable},
};

const Named<SoundType> soundTypes[] = {
    {QLatin1String("on"), SoundType::On},
    {QLatin1String("vibrate"), SoundType::Vibrate},
    {QLatin1String("off"), SoundType::None},
};

const Named<bool> connectionStates[] = {
    {QLatin1String("up"), true},
    {QLatin1String("down"), false},
};

QString stateName(quint32 state)
{
    return state < std::size(radioStates) ? QString(radioStates[state].name) : QString::number(state);
}

int listRadios(Request &request)
{
    for (const auto &radio : radios) {
        const auto state = request.hardware.radioState(radio.state);
        if (!state && !request.store.problem().isEmpty())
            return tellFailure(request.store.problem());
        tellState(radio.name + QLatin1Char(' ') + (state ? stateName(*state) : QStringLiteral("missing")));
    }
    return ExitStatus::ok;
}

int executeRadio(Request &request)
{
    if (request.arguments.isEmpty())
        return listRadios(request);
    const QString name = request.arguments.first();
    const auto *radio = findName(radios, name);
    if (!radio)
        return tellMisuse(request.command, QLatin1String("there is no radio ") + inQuotes(name));
    const QString missing = QLatin1String("the device has no ") + name + QLatin1String(" radio");
    if (request.arguments.size() == 1) {
        const auto state = request.hardware.radioState(radio->state);
        return state ? tellState(stateName(*state)) : tellFailure(request, missing);
    }

    const auto *state = findName(radioStates, request.arguments.last());
    const bool isBluetooth = radio->state == HardwareState::Radio::Bluetooth;
    if (!state || (state->state == discoverable && !isBluetooth))
        return tellMisuse(request.command,
                          QLatin1String("the ") + name + QLatin1String(" radio cannot be switched to ")
                              + inQuotes(request.arguments.last()));
    return request.hardware.setRadioState(radio->state, state->state) ? ExitStatus::ok
                                                                      : tellFailure(request, missing);
}

int executeSound(Request &request)
{
    if (request.arguments.isEmpty()) {
        const auto type = request.hardware.sound();
        if (!type)
            return tellFailure(request, QStringLiteral("the device has no sound profile"));
        // Another type, such as that of a sound file, is a profile with sounds.
        const auto *named = std::find_if(std::begin(soundTypes), std::end(soundTypes),
                                         [&type](const auto &entry) { return entry.state == *type; });
        return tellState((named == std::end(soundTypes) ? soundTypes[0] : *named).name);
    }
    const auto *type = findName(soundTypes, request.arguments.first());
    if (!type)
        return tellMisuse(request.command,
                          QLatin1String("there is no sound profile ") + inQuotes(request.arguments.first()));
    return request.hardware.setSound(type->state) ? ExitStatus::ok : tellFailure(request.store.problem());
}

int executeNetwork(Request &request)
{
    if (request.arguments.isEmpty()) {
        const bool isConnected = request.hardware.isConnected();
        return request.store.problem().isEmpty() ? tellState(connectionStates[isConnected ? 0 : 1].name)
                                                 : tellFailure(request.store.problem());
    }
    const auto *state = findName(connectionStates, request.arguments.first());
    if (!state)
        return tellMisuse(request.command,
                          QLatin1String("the network is switched \"up\" or \"down\", not ")
                              + inQuotes(request.arguments.first()));
    return request.hardware.setConnected(state->state) ? ExitStatus::ok
                                                       : tellFailure(request.store.problem());
}

} // namespace

int radioCommand(const QStringList &commandLine)
{
    const DeviceCommand command{
        QStringLiteral("radio"),
        QStringLiteral(
            "Usage: holm radio [--device DIR] [NAME [on|off|discoverable]]\n"
            "\n"
            "Shows or switches a radio of the simulated handheld: wifi, phone or bluetooth. Without\n"
            "NAME it shows all. Only bluetooth can be discoverable.\n"
            "\n"),
        2};
    return run(command, commandLine, executeRadio);
}

int soundCommand(const QStringList &commandLine)
{
    const DeviceCommand command{QStringLiteral("sound"),
                                QStringLiteral("Usage: holm sound [--device DIR] [on|vibrate|off]\n"
                                               "\n"
                                               "Shows or sets the sound profile of the simulated handheld.\n"
                                               "\n"),
                                1};
    return run(command, commandLine, executeSound);
}

int networkCommand(const QStringList &commandLine)
{
    const DeviceCommand command{
        QStringLiteral("network"),
        QStringLiteral("Usage: holm network [--device DIR] [up|down]\n"
                       "\n"
                       "Shows or switches whether the simulated handheld can make data connections.\n"
                       "\n"),
        1};
    return run(command, commandLine, executeNetwork);
}
