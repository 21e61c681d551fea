#include "platform/registry.h"
#include "support/fakewindows.h"
#include "support/providertest.h"

namespace {

const QString notFound = QStringLiteral("[Error] Cannot find S2P application.");

} // namespace

TEST_F(ProviderTest, S2pIsStartedOnceAndThenTold)
{
    FakeWindows windows;
    m_platform->windowsInForce = &windows;
    const auto started = [this] {
        QStringList files;
        for (const platform::ShellExecution &execution : std::exchange(m_shell->executions, {}))
            files.append(QString::fromStdU16String(execution.file)
                         + QLatin1String(execution.parameters ? " with parameters" : ""));
        return files;
    };

    run(QStringLiteral("s2pCommand('next'); s2pCommand('prev'); s2pCommand('Play'); s2pCommand('')"));
    EXPECT_EQ(takeMessages(), QStringList());
    run(QStringLiteral("s2pCommand('play'); s2pCommand('pause')"));
    EXPECT_EQ(takeMessages(), QStringList({notFound, notFound}));
    EXPECT_EQ(started(), QStringList());

    // Each place goes before the one above it, but only until one has been found.
    const QString inApplication = m_application.applicationPath() + QLatin1String("s2p.lnk");
    const QStringList places{inApplication, QStringLiteral("/Windows/s2p.lnk"),
                             QStringLiteral("/device/Program Files/S2P/s2p.exe")};
    m_shell->programFiles = u"/device/Program Files";
    for (const QString &place : places) {
        m_shell->existing.append(place);
        KestCommandProvider fresh;
        fresh.InitializeScript(&m_application);
        run(QStringLiteral("s2pCommand('pause')"));
        EXPECT_EQ(started(), QStringList(QString(place).replace(QLatin1Char('/'), QLatin1Char('\\'))));
        m_shell->existing.clear();
        run(QStringLiteral("s2pCommand('play')"));
        EXPECT_EQ(started().size(), 1) << "it is looked for again";
        m_shell->existing = places.mid(0, places.indexOf(place) + 1);
    }

    windows.windows = {{7, QStringLiteral("S2P")}};
    m_provider.InitializeScript(&m_application);
    run(QStringLiteral("s2pCommand('play'); s2pCommand('pause'); s2pCommand('next'); s2pCommand('prev');"
                       "s2pCommand('NEXT')"));
    EXPECT_EQ(windows.done,
              QStringList({QStringLiteral("7: 273 301 0"), QStringLiteral("7: 273 301 0"),
                           QStringLiteral("7: 273 302 0"), QStringLiteral("7: 273 303 0")}));
    EXPECT_EQ(started(), QStringList());
    EXPECT_EQ(takeMessages(), QStringList());
}

TEST_F(ProviderTest, S2pStatusIsReadFromTheRegistry)
{
    const auto status = [this] {
        return run(QStringLiteral("results = []; s2pStatus(this, cb); results[0].join('|')"));
    };
    EXPECT_EQ(status(), QStringLiteral("\"false||\""));

    const auto key =
        m_registry.findOrMake(platform::RegistryRoot::CurrentUser, QStringLiteral("Software\\A_C\\S2P"));
    ASSERT_TRUE(key);
    EXPECT_EQ(status(), QStringLiteral("\"false||\""));
    struct Case
    {
        const char *name;
        QByteArray data;
        const char *status;
    };
    const Case cases[] = {
        {"Status", QByteArray(4, '\0'), "true||"},
        {"CurrentTitle", QByteArray("T\0\xe9\0\0\0X\0", 8), "true|T\xc3\xa9|"},
        {"CurrentAlbum", QByteArray("A\0B\0C", 5), "true|T\xc3\xa9|AB"},
        {"CurrentTitle", QByteArray("T", 1), "true||AB"},
        {"CurrentAlbum", QByteArray("", 0), "true||"},
        {"Status", QByteArray("\1\0\0\0", 4), "false||"},
        {"Status", QByteArray(3, '\0'), "false||"},
        {"Status", QByteArray(5, '\0'), "false||"},
    };
    for (const Case &c : cases) {
        // Whatever the type says.
        ASSERT_TRUE(
            m_registry.setValue(*key, {QLatin1String(c.name), platform::RegistryType::binary, c.data}));
        EXPECT_EQ(status(), QLatin1Char('"') + QString::fromUtf8(c.status) + QLatin1Char('"'));
    }
}
