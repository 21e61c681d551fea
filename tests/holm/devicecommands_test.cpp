#include "support/holmsteps.h"

#include <platform/desktop/desktopplatform.h>

using platform::WirelessDevice;

TEST(DeviceCommands, ShowAndSwitchTheHardware)
{
    const HolmProcess holm;
    expectSteps(
        holm,
        {{"radio", 0, "wifi on\nphone on\nbluetooth off\n"},
         {"radio|wifi|off"},
         {"radio|wifi", 0, "off\n"},
         {"radio|bluetooth|discoverable"},
         {R"(reg|delete|HKLM\System\Radios\Phone\State)"},
         {"radio", 0, "wifi off\nphone missing\nbluetooth discoverable\n"},
         {"radio|phone", 1, "", "holm: the device has no phone radio\n"},
         {"radio|phone|on", 1, "", "holm: the device has no phone radio\n"},
         {"radio|wifi|discoverable", 2, "",
          "holm: the wifi radio cannot be switched to \"discoverable\"; see"},
         {"radio|wifi|ON", 2, "", "holm: the wifi radio cannot be switched to \"ON\"; see"},
         {"radio|WiFi", 2, "", "holm: there is no radio \"WiFi\"; see holm radio --help\n"},
         {"radio|wifi|on|x", 2, "", "holm: there is too much on the command line: x; see"},
         {"sound", 0, "on\n"},
         {"sound|vibrate"},
         {"sound", 0, "vibrate\n"},
         {R"(reg|set|--dword|HKCU\ControlPanel\Sound\Profile|1)"},
         {"sound", 0, "on\n"},
         {"sound|loud", 2, "", "holm: there is no sound profile \"loud\"; see holm sound --help\n"},
         {"network", 0, "up\n"},
         {"network|down"},
         {"network", 0, "down\n"},
         {"network|off", 2, "", "holm: the network is switched \"up\" or \"down\", not \"off\"; see"}});

    holm.write(QStringLiteral("broken/registry.db"), "no database at all, but long enough to look at it");
    for (const char *command : {"radio", "sound|off", "network"}) {
        const QByteArray onBroken = QByteArray(command) + "|--device|broken";
        const HolmResult result = holm.command(QString::fromLatin1(onBroken).split(QLatin1Char('|')));
        EXPECT_EQ(result.status, 1) << command;
        EXPECT_THAT(result.errors.toStdString(), testing::HasSubstr("broken/registry.db: ")) << command;
    }
}

TEST(DeviceCommands, AndTheBackEndSeeTheSameHardware)
{
    const HolmProcess holm;
    expectSteps(holm, {{"radio|bluetooth|discoverable"}, {"sound|vibrate"}});
    platform::DesktopPlatform device(platform::DeviceFolder(holm.path(QStringLiteral("device"))));

    const auto library = device.wireless().load();
    WirelessDevice *wifi = nullptr;
    WirelessDevice *later = nullptr;
    ASSERT_EQ(library->deviceList(wifi, 0), 0);
    ASSERT_EQ(library->deviceList(later, 0), 0);
    library->releaseList(later);
    const WirelessDevice *bluetooth = wifi->next->next;
    EXPECT_EQ(bluetooth->next, nullptr);
    EXPECT_EQ(bluetooth->type, 3U);
    EXPECT_EQ(bluetooth->state, 2U);
    EXPECT_EQ(wifi->type, 1U);

    WirelessDevice copy = *wifi;
    EXPECT_EQ(library->changeState(copy, 0, 1), 0);
    EXPECT_EQ(device.power().notify(wifi->deviceName, platform::PowerState::D4, platform::powerByName), 0);
    EXPECT_EQ(device.bluetooth().setMode(platform::BluetoothMode::Connectable), 0);

    platform::SoundRecord sound;
    EXPECT_EQ(device.sound().get(platform::allSounds, sound), 0);
    EXPECT_EQ(sound.type, platform::SoundType::Vibrate);
    sound.type = platform::SoundType::None;
    EXPECT_EQ(device.sound().set(platform::allSounds, sound, platform::withoutUserInterface), 0);

    const auto connection = device.connections().connect({}, std::chrono::seconds(1));
    EXPECT_EQ(connection->status(), platform::connectionConnected);
    expectSteps(holm,
                {{"radio", 0, "wifi off\nphone on\nbluetooth on\n"},
                 {R"(reg|get|HKLM\System\Radios\WiFi\SavedState)", 0, "1\n"},
                 {R"(reg|get|HKLM\System\Radios\WiFi\Power)", 0, "4\n"},
                 {"sound", 0, "off\n"},
                 {"network|down"},
                 {R"(reg|delete|--key|HKLM\System\Radios)"}});
    EXPECT_NE(connection->status(), platform::connectionConnected);
    EXPECT_EQ(device.connections().connect({}, std::chrono::seconds(1)), nullptr);
    EXPECT_NE(device.bluetooth().setMode(platform::BluetoothMode::Off), 0);
    EXPECT_EQ(library->deviceList(later, 0), 0);
    EXPECT_EQ(later, nullptr);
}
