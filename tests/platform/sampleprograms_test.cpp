#include "platform/desktop/desktopplatform.h"
#include "platform/desktop/shortcutfile.h"
#include "support/holmsteps.h"

#include <QtCore/QDirIterator>
#include <QtTest/QTest>

TEST(SamplePrograms, AreStartedByShortcutsWithIcons)
{
    const QTemporaryDir dir;
    const platform::DeviceFolder device(dir.filePath(QStringLiteral("device")));
    ASSERT_EQ(device.create(), QString());
    platform::DesktopPlatform handheld(device);

    int count = 0;
    QDirIterator shortcuts(device.path(), {QStringLiteral("*.lnk")}, QDir::Files,
                           QDirIterator::Subdirectories);
    for (; shortcuts.hasNext(); ++count) {
        QFile file(shortcuts.next());
        const std::string name = file.fileName().toStdString();
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray content = file.readAll();
        const auto target = platform::parseShortcut(content);
        EXPECT_TRUE(target && handheld.shell().exists(target->file.toStdU16String())) << name;

        const QString icon = QString::fromUtf8(content).section(QLatin1Char('?'), 1).trimmed();
        const auto found = handheld.icons().extract(icon.section(QLatin1Char(','), 0, 0).toStdU16String(),
                                                    icon.section(QLatin1Char(','), 1).toInt());
        EXPECT_TRUE(found.large && found.large->picture().width == 32) << name;
        EXPECT_TRUE(found.small && found.small->picture().width == 16) << name;
    }
    EXPECT_GT(count, 10);
}

TEST(SamplePrograms, SwitchTheHardware)
{
    const HolmProcess holm;
    expectSteps(holm, {{"radio|bluetooth|on"}});
    qputenv("HOLM", HOLM_PROGRAM);
    platform::DesktopPlatform handheld(platform::DeviceFolder(holm.path(QStringLiteral("device"))));

    struct Case
    {
        const char16_t *shortcut;
        const char *command;
        const char *output;
    };
    constexpr int patience = 20000;
    const Case cases[] = {
        {u"\\Programs\\Settings\\Radios Off.lnk", "radio", "wifi off\nphone off\nbluetooth off\n"},
        {u"\\Programs\\Settings\\Vibrate.lnk", "sound", "vibrate\n"},
        {u"\\Programs\\Settings\\Network\\Disconnect.lnk", "network", "down\n"},
    };
    for (const Case &c : cases) {
        platform::ShellExecution execution;
        execution.file = c.shortcut;
        EXPECT_TRUE(handheld.shell().execute(execution));
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return holm.command({QLatin1String(c.command)}).output == QLatin1String(c.output); },
            patience))
            << c.command;
    }
    qunsetenv("HOLM");
}
