#include "platform/desktop/icons/desktopicons.h"

#include "platform/desktop/filedescriptor.h"
#include "platform/desktop/icons/iconfile.h"
#include "platform/desktop/icons/iconimage.h"
#include "platform/desktop/plainpicture.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <tuple>
#include <utility>

namespace platform {

namespace {

constexpr int largeSide = 32;
constexpr int smallSide = 16;

class DesktopIcon : public Icon
{
public:
    explicit DesktopIcon(const QImage &image)
        : m_image(image)
    {
    }

    Picture picture() override { return toPicture(m_image); }

private:
    const QImage m_image;
};

/// Opens a regular file and nothing else: a device may do something, a pipe may wait for ever.
FileDescriptor openRegular(const QString &path)
{
    if (path.contains(QChar(QChar::Null)) || !QFileInfo(path).isFile())
        return FileDescriptor();
    FileDescriptor file(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat entry = {};
    const bool isRegular = file.isValid() && ::fstat(file.get(), &entry) == 0 && S_ISREG(entry.st_mode);
    return isRegular ? std::move(file) : FileDescriptor();
}

/// The nearest in size, and of these the one with the most colours; the first of several.
int nearestTo(int side, const QVector<IconImage> &images)
{
    const auto key = [side](const IconImage &image) {
        return std::tuple(std::abs(image.width - side) + std::abs(image.height - side), -image.bitCount);
    };
    const auto nearest =
        std::min_element(images.cbegin(), images.cend(),
                         [&](const IconImage &a, const IconImage &b) { return key(a) < key(b); });
    return static_cast<int>(nearest - images.cbegin());
}

} // namespace

DesktopIcons::DesktopIcons(const DeviceFolder &device)
    : m_device(device)
{
}

ExtractedIcons DesktopIcons::extract(const std::u16string &file, int index)
{
    ExtractedIcons result;
    const FileDescriptor descriptor = openRegular(m_device.localPath(QString::fromStdU16String(file)));
    QFile device;
    if (!descriptor.isValid() || !device.open(descriptor.get(), QIODevice::ReadOnly | QIODevice::Unbuffered))
        return result;
    const IconFile icons(device);
    const QVector<IconImage> images = icons.icon(index);
    if (images.isEmpty())
        return result;

    const auto draw = [&](int image) { return decodeIconImage(icons.encoded(images.at(image))); };
    const auto handOut = [&result](const QImage &image) -> std::unique_ptr<Icon> {
        if (image.isNull())
            return nullptr;
        ++result.count;
        return std::make_unique<DesktopIcon>(image);
    };
    const int large = nearestTo(largeSide, images);
    const int small = nearestTo(smallSide, images);
    const QImage largeImage = draw(large);
    result.large = handOut(largeImage);
    result.small = handOut(small == large ? largeImage : draw(small));
    return result;
}

int DesktopIcons::screenDensity()
{
    // Handhelds have one of these, whatever the desktop's screen has.
    constexpr int usual = 96;
    constexpr int high = 192;
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen && screen->logicalDotsPerInchX() >= (usual + high) / 2.0 ? high : usual;
}

} // namespace platform
