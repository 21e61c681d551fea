#include "programs/iconextraction.h"

#include "dialogs/imagefile.h"
#include "files/paths.h"
#include "platform/icons.h"
#include "platform/platform.h"
#include "platform/registryvalue.h"
#include "platform/shell.h"
#include "programs/shortcuticon.h"
#include "provider/kestcommandprovider.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <optional>

namespace {

constexpr qint64 largestShortcut = 65536;

std::optional<QString> registryText(platform::RegistryRoot root, const QString &key, const char16_t *name)
{
    const auto opened = platform::current().registry().open(root, key.toStdU16String());
    const auto text = opened.key ? platform::readText(*opened.key, name) : std::nullopt;
    return text ? std::optional(QString::fromStdU16String(*text)) : std::nullopt;
}

std::optional<IconLocation> iconOfDocumentType(const QString &type)
{
    const auto icon =
        registryText(platform::RegistryRoot::ClassesRoot, type + QLatin1String("\\DefaultIcon"), u"");
    return icon ? std::optional(readIconLocation(*icon)) : std::nullopt;
}

std::optional<IconLocation> iconOfShellName(const QString &name)
{
    const auto commandLine = registryText(platform::RegistryRoot::LocalMachine,
                                          QLatin1String("Software\\Microsoft\\Shell\\Rai\\") + name, u"1");
    return commandLine ? std::optional(IconLocation{programOf(*commandLine), 0}) : std::nullopt;
}

std::optional<IconLocation> iconOfShortcut(const QString &path, ShortcutUse use)
{
    QFile file(KestCommandProvider::resolvedPath(path));
    // Not of a pipe, which might never end.
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const ShortcutIcon icon = readShortcutIcon(file.read(largestShortcut));

    std::optional<IconLocation> location;
    switch (icon.source) {
    case ShortcutIcon::Source::None:
        break;
    case ShortcutIcon::Source::Location:
        location = icon.location;
        break;
    case ShortcutIcon::Source::DocumentType:
        location = iconOfDocumentType(icon.name);
        break;
    case ShortcutIcon::Source::ShellName:
        location = iconOfShellName(icon.name);
        break;
    }
    // The first icon of a library, which is what a file without a number would name, belongs to no program.
    const bool isOfLibrary =
        location && location->index == 0 && !hasEnding(location->file, QLatin1String(".exe"));
    return isOfLibrary && use == ShortcutUse::Program ? std::nullopt : location;
}

/// The file as the shell finds it: in the Windows folder if it is not said where, and with the shell's icons
/// in the library that they have moved to.
QString completed(const QString &file)
{
    QString path = isAbsolutePath(file) ? file : QLatin1String("\\Windows\\") + file;
    const int name = std::max(path.lastIndexOf(QLatin1Char('\\')), path.lastIndexOf(QLatin1Char('/'))) + 1;
    if (path.midRef(name).compare(QLatin1String("ceshell.dll"), Qt::CaseInsensitive) == 0)
        path.replace(name, path.size() - name, QStringLiteral("shellres.dll"));
    return path;
}

bool isEmpty(const platform::ExtractedIcons &icons)
{
    return icons.count == 0 || (!icons.large && !icons.small);
}

platform::ExtractedIcons extract(const IconLocation &location)
{
    platform::Icons &icons = platform::current().icons();
    const QString file = completed(location.file);
    auto found = icons.extract(file.toStdU16String(), location.index);
    if (!isEmpty(found) || !hasEnding(file, QLatin1String(".dll")))
        return found;

    // Libraries of pictures come in one file for each density of screens, as "shellres.192.dll".
    const QString ofDensity =
        file.chopped(3) + QString::number(icons.screenDensity()) + QLatin1String(".dll");
    if (platform::current().shell().exists(ofDensity.toStdU16String()))
        found = icons.extract(ofDensity.toStdU16String(), location.index);
    return found;
}

} // namespace

QPixmap extractIconPixmap(const QString &path, bool large, int width, int height, ShortcutUse use)
{
    const auto location = hasEnding(path, QLatin1String(".lnk")) ? iconOfShortcut(path, use)
                                                                 : std::optional(IconLocation{path, 0});
    if (!location)
        return QPixmap();
    const platform::ExtractedIcons icons = extract(*location);
    if (isEmpty(icons))
        return QPixmap();
    platform::Icon *const chosen = large && icons.large ? icons.large.get() : icons.small.get();
    QImage image = chosen ? toImage(chosen->picture()) : QImage();
    const QSize wanted(width == 0 ? image.width() : width, height == 0 ? image.height() : height);
    if (wanted != image.size())
        image = scaledTo(image, wanted.width(), wanted.height());
    return QPixmap::fromImage(image);
}

bool saveIconToFile(const QString &source, const QString &destination, bool large, int width, int height,
                    int quality)
{
    const QPixmap icon = extractIconPixmap(source, large, width, height);
    return !icon.isNull() && saveImage(icon.toImage(), destination, quality);
}

QImage toImage(const platform::Picture &picture)
{
    const qint64 size = qint64(picture.width) * picture.height;
    if (picture.width <= 0 || picture.height <= 0 || size != static_cast<qint64>(picture.pixels.size()))
        return QImage();
    QImage image(picture.width, picture.height, QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        const auto row = picture.pixels.cbegin() + std::ptrdiff_t(y) * picture.width;
        std::copy(row, row + picture.width, reinterpret_cast<QRgb *>(image.scanLine(y)));
    }
    return image;
}

bool hasEnding(const QString &path, QLatin1String ending)
{
    return path.endsWith(ending, Qt::CaseInsensitive);
}
