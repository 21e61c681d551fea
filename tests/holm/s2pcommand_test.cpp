#include "platform/desktop/devicefolder.h"
#include "platform/desktop/messagewindow.h"
#include "platform/desktop/registrydata.h"
#include "support/holmsteps.h"

#include <QtCore/QFile>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVirtualObject>
#include <QtTest/QTest>

namespace {

template <class Test>
bool waitFor(Test holds)
{
    constexpr int patience = 10000;
    return QTest::qWaitFor(holds, patience);
}

class S2pCommandTest : public testing::Test
{
protected:
    S2pCommandTest() { qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/none"); }

    void makeDevice() const { expectSteps(m_holm, {{"radio", 0, "wifi on\nphone on\nbluetooth off\n"}}); }

    std::unique_ptr<QProcess> start(const QStringList &commandLine) const
    {
        auto process = m_holm.prepareCommand(commandLine);
        process->setProcessChannelMode(QProcess::MergedChannels);
        process->start();
        return process;
    }

    static QString nextLine(QProcess &process)
    {
        EXPECT_TRUE(waitFor([&process] { return process.canReadLine(); }));
        return QString::fromUtf8(process.readLine()).trimmed();
    }

    static int status(QProcess &process)
    {
        return waitFor([&process] { return process.state() == QProcess::NotRunning; }) ? process.exitCode()
                                                                                       : -1;
    }

    bool post(std::uint64_t command) const
    {
        return platform::MessageWindow::post(m_device, QStringLiteral("S2P"),
                                             {platform::commandMessage, command, 0});
    }

    std::optional<quint32> publishedStatus() const
    {
        platform::RegistryStore store(m_device);
        const auto key =
            store.find(platform::RegistryRoot::CurrentUser, QStringLiteral("Software\\A_C\\S2P"));
        const auto value = key ? store.value(*key, QStringLiteral("Status")) : std::nullopt;
        return value ? platform::numberIn(*value) : std::nullopt;
    }

    const HolmProcess m_holm;
    const platform::DeviceFolder m_device{m_holm.path(QStringLiteral("device"))};
};

/// A session bus of its own, with a media player on it.
class FakePlayer : public QDBusVirtualObject
{
public:
    FakePlayer()
    {
        m_daemon.start(QStringLiteral("timeout"),
                       {QStringLiteral("120"), QStringLiteral("dbus-daemon"), QStringLiteral("--session"),
                        QStringLiteral("--print-address"), QStringLiteral("--nofork"),
                        QStringLiteral("--nopidfile"),
                        QLatin1String("--address=unix:path=") + m_dir.filePath(QStringLiteral("bus"))});
        EXPECT_TRUE(m_daemon.waitForReadyRead());
        const QByteArray address = m_daemon.readLine().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        m_bus = QDBusConnection::connectToBus(QString::fromUtf8(address), QStringLiteral("fake"));
        EXPECT_TRUE(m_bus.registerVirtualObject(path, this));
        appear();
    }
    ~FakePlayer() override
    {
        QDBusConnection::disconnectFromBus(QStringLiteral("fake"));
        killBus();
    }

    void appear() { EXPECT_TRUE(m_bus.registerService(service)); }
    void leave() { EXPECT_TRUE(m_bus.unregisterService(service)); }
    void killBus()
    {
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }

    void tell(const QVariant &status, const QVariant &metadata)
    {
        properties =
            QVariantMap{{QStringLiteral("PlaybackStatus"), status}, {QStringLiteral("Metadata"), metadata}};
        m_bus.send(QDBusMessage::createSignal(path, QStringLiteral("org.freedesktop.DBus.Properties"),
                                              QStringLiteral("PropertiesChanged")));
    }

    QString introspect(const QString &) const override { return QString(); }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        if (message.member() == QLatin1String("GetAll"))
            return connection.send(message.createReply(properties));
        calls.append(message.interface() + QLatin1Char('.') + message.member());
        return true;
    }

    QVariant properties; ///< the answer to who asks for all
    QStringList calls;

private:
    const QString path = QStringLiteral("/org/mpris/MediaPlayer2");
    const QString service = QStringLiteral("org.mpris.MediaPlayer2.tester");
    const QTemporaryDir m_dir;
    QProcess m_daemon;
    QDBusConnection m_bus{QString()};
};

QVariantMap song(const QVariant &title, const QVariant &album)
{
    return {{QStringLiteral("xesam:title"), title}, {QStringLiteral("xesam:album"), album}};
}

} // namespace

TEST_F(S2pCommandTest, AWidgetStartsAndDrivesThePlayer)
{
    m_holm.write(QStringLiteral("w.js"), R"(
        var commands = ["play", "next", "prev", "prev", "pause", "next", "play"], before, shown;
        setInterval(function() {
            s2pStatus(this, function(playing, title, album) {
                var now = [playing, title, album].join("|");
                // One read alone may have fallen between two publications.
                var isCertain = now === before;
                before = now;
                if (!isCertain || now === shown)
                    return;
                print(shown = now);
                commands.length ? s2pCommand(commands.shift()) : quit();
            });
        }, 10))");
    const HolmResult result = m_holm.run({QStringLiteral("--unattended"), QStringLiteral("w.js")});
    EXPECT_EQ(result.errors, QString());
    EXPECT_EQ(result.output.split(QLatin1Char('\n')),
              QStringList({QStringLiteral("false||"),
                           QStringLiteral("true|Rain on the Tin Roof|Weather Report for Two"),
                           QStringLiteral("true|Slow Train Home|Weather Report for Two"),
                           QStringLiteral("true|Rain on the Tin Roof|Weather Report for Two"),
                           QStringLiteral("true|Before the Birds|Small Hours"),
                           QStringLiteral("false|Before the Birds|Small Hours"),
                           QStringLiteral("false|Rain on the Tin Roof|Weather Report for Two"),
                           QStringLiteral("true|Rain on the Tin Roof|Weather Report for Two"), QString()}));

    expectSteps(m_holm, {{"s2p", 1, "", "holm: S2P is running on this device already"}});
    ASSERT_TRUE(QFile::remove(m_holm.path(QStringLiteral("device/message windows/S2P"))));
    EXPECT_TRUE(waitFor([this] { return publishedStatus() == 1u; }));
    const QString openDatabase = m_holm.path(QStringLiteral("device/registry.db-wal"));
    const auto isClosed = [&] {
        publishedStatus(); // who is the last to close it puts it away, unless two do so at the same time
        return !QFile::exists(openDatabase);
    };
    EXPECT_TRUE(waitFor(isClosed)) << "it does not end";
}

TEST_F(S2pCommandTest, EndsAsItIsTold)
{
    makeDevice();
    const auto killed = start({QStringLiteral("s2p")});
    EXPECT_EQ(nextLine(*killed), QStringLiteral("Playing: Rain on the Tin Roof (Weather Report for Two)"));
    EXPECT_EQ(publishedStatus(), 0u);
    killed->kill();
    killed->waitForFinished();
    EXPECT_FALSE(post(301));

    const auto player = start({QStringLiteral("s2p")});
    EXPECT_EQ(nextLine(*player), QStringLiteral("Playing: Rain on the Tin Roof (Weather Report for Two)"));
    EXPECT_TRUE(post(300) && post(302));
    EXPECT_EQ(nextLine(*player), QStringLiteral("Playing: Slow Train Home (Weather Report for Two)"));
    player->terminate();
    EXPECT_EQ(status(*player), 128 + 15);
    EXPECT_EQ(publishedStatus(), 1u);
    EXPECT_FALSE(post(301));

    expectSteps(
        m_holm,
        {{"s2p|--device|/proc/none", 1, "", "holm: /proc/none is no device folder; holm run makes one\n"},
         {"s2p|--mpris|x", 1, "", "holm: the session bus, where players are found, cannot be reached: "}});
}

TEST_F(S2pCommandTest, DrivesAPlayerOfTheDesktop)
{
    makeDevice();
    FakePlayer fake;
    expectSteps(m_holm,
                {{"s2p|--mpris|other", 1, "", "holm: there is no player \"other\"; running: tester\n"},
                 {"s2p|--mpris|é", 1, "", "holm: there is no player \"é\"; running: tester\n"}});
    const QString playing = QStringLiteral("Playing");
    const QString one = QStringLiteral("One");
    fake.tell(playing, song(one, QStringLiteral("First")));
    const auto player = start({QStringLiteral("s2p"), QStringLiteral("--mpris"), QStringLiteral("tester")});
    EXPECT_EQ(nextLine(*player), QStringLiteral("Playing: One (First)"));
    EXPECT_EQ(publishedStatus(), 0u);
    EXPECT_TRUE(post(301) && post(302) && post(303));
    const QString interface = QStringLiteral("org.mpris.MediaPlayer2.Player.");
    EXPECT_TRUE(waitFor([&fake] { return fake.calls.size() == 3; }));
    EXPECT_EQ(fake.calls,
              QStringList({interface + QLatin1String("PlayPause"), interface + QLatin1String("Next"),
                           interface + QLatin1String("Previous")}));

    const QList<std::tuple<QVariant, QVariant, QString>> cases = {
        {QStringLiteral("Paused"), song(one, QVariant(QString())), QStringLiteral("Paused: One")},
        {playing, song(QStringLiteral("a\x1b[2J\nb"), 7), QStringLiteral("Playing: a [2J b (7)")},
        {7, 7, QStringLiteral("Paused: without a title")},
        {one, song(QString(2000000, QLatin1Char('x')), one),
         QLatin1String("Paused: ") + QString(1000, QLatin1Char('x')) + QLatin1String(" (One)")},
        {playing, QVariant::fromValue(QStringList(one)), QStringLiteral("Playing: without a title")},
    };
    for (const auto &[status, metadata, line] : cases) {
        fake.tell(status, metadata);
        EXPECT_EQ(nextLine(*player), line);
    }
    fake.properties = 5;
    fake.leave();
    EXPECT_EQ(nextLine(*player), QStringLiteral("holm: tester has gone; waiting for it to come back"));
    EXPECT_EQ(publishedStatus(), 1u);
    fake.appear();
    EXPECT_TRUE(nextLine(*player).startsWith(QLatin1String("holm: tester does not tell what it plays: ")));
    fake.tell(playing, song(one, one));
    EXPECT_EQ(nextLine(*player), QStringLiteral("Playing: One (One)"));

    fake.killBus();
    EXPECT_EQ(status(*player), 1);
    EXPECT_TRUE(player->readAll().endsWith("holm: the session bus has gone\n"));
    EXPECT_EQ(publishedStatus(), 1u);
}
