#include "s2pcommand.h"

#include "commandoptions.h"
#include "mprisplayer.h"
#include "s2pplayer.h"

#include <QtCore/QCoreApplication>

#include <array>
#include <cstddef>

namespace {

const char helpText[] =
    "Usage: holm s2p [--device DIR] [--mpris NAME]\n"
    "\n"
    "Plays the music player S2P of a simulated handheld, for s2pCommand and s2pStatus, until it is\n"
    "interrupted. Without --mpris it is a stand-in with a few songs that make no sound.\n"
    "\n"
    "  --mpris NAME   drive the media player of that name on the desktop, such as vlc\n";

struct Song
{
    const char *title;
    const char *album;
};

constexpr std::array<Song, 5> playList = {{{"Rain on the Tin Roof", "Weather Report for Two"},
                                           {"Slow Train Home", "Weather Report for Two"},
                                           {"Lanterns", "Weather Report for Two"},
                                           {"The Gardener's Waltz", "Small Hours"},
                                           {"Before the Birds", "Small Hours"}}};

/// Goes through a play list without a sound.
class StandInPlayer : public S2pPlayer
{
public:
    using S2pPlayer::S2pPlayer;

protected:
    QString start() override
    {
        playOrPause();
        return QString();
    }

    void playOrPause() override
    {
        m_isPlaying = !m_isPlaying;
        publishSong();
    }
    void next() override { step(1); }
    void previous() override { step(playList.size() - 1); }

private:
    void step(std::size_t songs)
    {
        m_song = (m_song + songs) % playList.size();
        publishSong();
    }

    void publishSong()
    {
        const Song &song = playList.at(m_song);
        publish({m_isPlaying, QString::fromLatin1(song.title), QString::fromLatin1(song.album)});
    }

    std::size_t m_song = 0;
    bool m_isPlaying = false;
};

} // namespace

int s2pCommand(int &argc, char **argv, const QStringList &commandLine)
{
    const QString mpris = QStringLiteral("mpris");
    // A player may be started just when its device is deleted; it must not make it again.
    const bool makesDevice = false;
    const DeviceCommand command{
        QStringLiteral("s2p"), QString::fromLatin1(helpText), 0, {}, {mpris}, makesDevice};
    return runDeviceCommand(command, commandLine, [&](const CommandOptions &options) {
        const QCoreApplication application(argc, argv);
        if (options.values.contains(mpris))
            return MprisPlayer(options.device, options.values.value(mpris)).run();
        return StandInPlayer(options.device).run();
    });
}
