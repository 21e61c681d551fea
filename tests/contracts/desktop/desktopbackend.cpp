#include "contracts/backend.h"
#include "contracts/connections.h"
#include "contracts/hiddenwindows.h"
#include "contracts/registry.h"
#include "contracts/shell.h"

#include "platform/desktop/desktophiddenwindows.h"
#include "platform/desktop/desktopplatform.h"
#include "platform/desktop/registrystore.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEventLoop>
#include <QtCore/QTemporaryDir>

using platform::DeviceFolder;
using platform::RegistryRoot;
using platform::RegistryStore;

namespace {

QString latestDevice;

/// A device that is there as long as its platform.
class DevicePlatform : private QTemporaryDir, public platform::DesktopPlatform
{
public:
    DevicePlatform()
        : platform::DesktopPlatform(created(path()))
    {
    }

private:
    static DeviceFolder created(const QString &path)
    {
        const DeviceFolder device(path);
        EXPECT_EQ(device.create(), QString());
        latestDevice = path;
        return device;
    }
};

} // namespace

std::unique_ptr<platform::Platform> contracts::makePlatform()
{
    return std::make_unique<DevicePlatform>();
}

std::u16string contracts::scratchFolder()
{
    static const QTemporaryDir folder;
    return folder.path().toStdU16String();
}

std::filesystem::path contracts::programFolder()
{
    return QCoreApplication::applicationDirPath().toStdU16String();
}

void contracts::processEvents()
{
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void contracts::hide(const std::filesystem::path &)
{
    // The name does it.
}

void contracts::setOnline(platform::Platform &device, bool isOnline)
{
    const auto network = device.registry().open(RegistryRoot::LocalMachine, u"System\\Network");
    ASSERT_TRUE(network.key);
    const std::uint8_t connected = isOnline ? 1 : 0;
    EXPECT_TRUE(network.key->write(u"Connected", platform::RegistryType::dword, {connected, 0, 0, 0}, 4));
}

bool contracts::postTo(platform::Platform &platform, platform::WindowHandle window,
                       const platform::WindowMessage &message)
{
    return dynamic_cast<platform::DesktopHiddenWindows &>(platform.hiddenWindows()).post(window, message);
}

std::unique_ptr<platform::Platform> contracts::makeRegistryPlatform()
{
    return makePlatform();
}

void contracts::makeKey(const std::u16string &path)
{
    RegistryStore store{DeviceFolder(latestDevice)};
    EXPECT_TRUE(store.findOrMake(RegistryRoot::CurrentUser, QString::fromStdU16String(path)));
}

void contracts::removeKey(const std::u16string &path)
{
    RegistryStore store{DeviceFolder(latestDevice)};
    if (const auto key = store.find(RegistryRoot::CurrentUser, QString::fromStdU16String(path)))
        store.removeKey(*key);
}

void contracts::removeValue(const std::u16string &path, const std::u16string &name)
{
    RegistryStore store{DeviceFolder(latestDevice)};
    if (const auto key = store.find(RegistryRoot::CurrentUser, QString::fromStdU16String(path)))
        store.removeValue(*key, QString::fromStdU16String(name));
}
