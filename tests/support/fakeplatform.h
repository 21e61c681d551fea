#pragma once

#include "platform/desktop/desktopplatform.h"
#include "platform/shell.h"

#include <QtCore/QStringList>

#include <mutex>
#include <vector>

class FakeShell : public platform::Shell
{
public:
    bool execute(const platform::ShellExecution &execution) override;
    std::optional<std::u16string> specialFolder(platform::SpecialFolder folder, bool create) override;
    bool exists(const std::u16string &path) override;
    std::u16string localPath(const std::u16string &path) override;
    void listFolder(const std::u16string &directory,
                    const std::function<void(const platform::FolderEntry &)> &take) override;

    std::vector<platform::ShellExecution> executions;
    QStringList askedFolders;
    std::u16string programFiles; ///< empty: there is no such folder
    std::u16string programs; ///< the same
    QStringList existing;
};

/// Writes down what it is to show, as "[caption] text".
class FakeMessageBox : public platform::NativeMessageBox
{
public:
    void show(const std::u16string &text, const std::u16string &caption) override;

    /// What was shown since the last call.
    QStringList take();

private:
    std::mutex m_mutex;
    QStringList m_shown;
};

/// Keeps a platform in force during its life.
class PlatformInForce
{
public:
    explicit PlatformInForce(std::unique_ptr<platform::Platform> platform);
    ~PlatformInForce();
    Q_DISABLE_COPY(PlatformInForce)
};

/// The simulated device with a shell and message boxes that only write down. A test may put other
/// services of its own in the place of the device's.
class FakePlatform : public platform::Platform
{
public:
    explicit FakePlatform(const QString &deviceFolder);

    platform::Shell &shell() override { return fakeShell; }
    platform::NativeMessageBox &messageBox() override { return fakeMessageBox; }
    platform::Registry &registry() override { return registryInForce ? *registryInForce : device.registry(); }
    platform::TopLevelWindows &windows() override
    {
        return windowsInForce ? *windowsInForce : device.windows();
    }
    platform::Icons &icons() override { return iconsInForce ? *iconsInForce : device.icons(); }
    platform::Wireless &wireless() override { return wirelessInForce ? *wirelessInForce : device.wireless(); }
    platform::Bluetooth &bluetooth() override
    {
        return bluetoothInForce ? *bluetoothInForce : device.bluetooth();
    }
    platform::DevicePower &power() override { return powerInForce ? *powerInForce : device.power(); }
    platform::SoundSettings &sound() override { return soundInForce ? *soundInForce : device.sound(); }
    platform::ConnectionManager &connections() override
    {
        return connectionsInForce ? *connectionsInForce : device.connections();
    }
    platform::HiddenWindows &hiddenWindows() override { return device.hiddenWindows(); }
    platform::PocketOutlook &pocketOutlook() override
    {
        return outlookInForce ? *outlookInForce : device.pocketOutlook();
    }
    platform::Clock &clock() override { return clockInForce ? *clockInForce : device.clock(); }

    platform::DesktopPlatform device;
    FakeShell fakeShell;
    FakeMessageBox fakeMessageBox;
    platform::Registry *registryInForce = nullptr;
    platform::TopLevelWindows *windowsInForce = nullptr;
    platform::Icons *iconsInForce = nullptr;
    platform::Wireless *wirelessInForce = nullptr;
    platform::Bluetooth *bluetoothInForce = nullptr;
    platform::DevicePower *powerInForce = nullptr;
    platform::SoundSettings *soundInForce = nullptr;
    platform::ConnectionManager *connectionsInForce = nullptr;
    platform::PocketOutlook *outlookInForce = nullptr;
    platform::Clock *clockInForce = nullptr;
};
