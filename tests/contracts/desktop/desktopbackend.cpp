#include "contracts/desktop/desktopbackend.h"

#include "contracts/backend.h"

#include "platform/desktop/desktopplatform.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEventLoop>
#include <QtCore/QTemporaryDir>
#include <gmock/gmock.h>

namespace contracts {

namespace {

QString &latestPath()
{
    static QString path;
    return path;
}

/// A device that is there as long as its platform.
class DevicePlatform : private QTemporaryDir, public platform::DesktopPlatform
{
public:
    DevicePlatform()
        : platform::DesktopPlatform(created(path()))
    {
    }

private:
    static platform::DeviceFolder created(const QString &path)
    {
        const platform::DeviceFolder device(path);
        EXPECT_EQ(device.create(), QString());
        latestPath() = path;
        return device;
    }
};

} // namespace

platform::DeviceFolder latestDevice()
{
    return platform::DeviceFolder(latestPath());
}

std::unique_ptr<platform::Platform> makePlatform()
{
    return std::make_unique<DevicePlatform>();
}

std::u16string scratchFolder()
{
    static const QTemporaryDir folder;
    return folder.path().toStdU16String();
}

void processEvents()
{
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace contracts
