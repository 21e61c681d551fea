#include "s2pplayer.h"

#include "commandoptions.h"
#include "exitstatus.h"
#include "unixsignals.h"

#include <platform/desktop/registrydata.h>

#include <QtCore/QCoreApplication>

#include <iostream>

namespace {

const QString windowTitle = QStringLiteral("S2P");

constexpr quint64 playOrPauseCommand = 301;
constexpr quint64 nextCommand = 302;
constexpr quint64 previousCommand = 303;

bool isSame(const S2pPlayer::State &one, const S2pPlayer::State &other)
{
    return one.isPlaying == other.isPlaying && one.title == other.title && one.album == other.album;
}

} // namespace

S2pPlayer::S2pPlayer(const platform::DeviceFolder &device)
    : m_device(device)
    , m_registry(device)
    , m_window(device, windowTitle)
{
    connect(&m_window, &platform::MessageWindow::received, this, &S2pPlayer::carryOut);
    connect(&m_window, &platform::MessageWindow::removed, this,
            [] { QCoreApplication::exit(ExitStatus::ok); });
}

int S2pPlayer::run()
{
    const QString windowProblem = problemWithWindow();
    if (!windowProblem.isEmpty())
        return tellFailure(windowProblem);
    UnixSignals signalsOfUnix;
    connect(&signalsOfUnix, &UnixSignals::received, this,
            [](int number) { QCoreApplication::exit(ExitStatus::signalBase + number); });
    if (!write(m_published))
        return tellFailure(m_registry.problem());
    const QString problem = start();
    if (!problem.isEmpty())
        return tellFailure(problem);

    const int status = QCoreApplication::exec();
    publishStop();
    return status;
}

void S2pPlayer::publish(const State &state)
{
    if (isSame(state, m_published))
        return;
    if (!write(state)) {
        tellFailure(m_registry.problem());
        return;
    }
    m_published = state;
    const QString title = state.title.isEmpty() ? QStringLiteral("without a title") : state.title;
    const QString album =
        state.album.isEmpty() ? QString() : QLatin1String(" (") + state.album + QLatin1Char(')');
    std::cout << (state.isPlaying ? "Playing: " : "Paused: ") << (title + album).toStdString() << std::endl;
}

void S2pPlayer::publishStop()
{
    m_published.isPlaying = false;
    write(m_published);
}

QString S2pPlayer::problemWithWindow() const
{
    const bool isTaken =
        !m_window.problem().isEmpty() && platform::MessageWindow::exists(m_device, windowTitle);
    return isTaken ? QStringLiteral("S2P is running on this device already") : m_window.problem();
}

void S2pPlayer::carryOut(const platform::WindowMessage &message)
{
    if (message.message != platform::commandMessage)
        return;
    if (message.wParam == playOrPauseCommand)
        playOrPause();
    else if (message.wParam == nextCommand)
        next();
    else if (message.wParam == previousCommand)
        previous();
}

bool S2pPlayer::write(const State &state)
{
    return m_registry.inTransaction([&] {
        const auto key =
            m_registry.findOrMake(platform::RegistryRoot::CurrentUser, QStringLiteral("Software\\A_C\\S2P"));
        return key
            && m_registry.setValue(*key, platform::textValue(QStringLiteral("CurrentTitle"), state.title))
            && m_registry.setValue(*key, platform::textValue(QStringLiteral("CurrentAlbum"), state.album))
            && m_registry.setValue(*key,
                                   platform::numberValue(QStringLiteral("Status"), state.isPlaying ? 0 : 1));
    });
}
