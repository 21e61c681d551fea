#include "platform/desktop/desktopshell.h"

#include "platform/desktop/commandline.h"
#include "platform/desktop/localfolder.h"
#include "platform/desktop/shortcutfile.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QStandardPaths>

namespace platform {

namespace {

// A shortcut may name a shortcut; one that names itself must not hang.
constexpr int mostLinks = 8;
constexpr qint64 largestShortcut = 65536;

bool isAddress(const QString &file)
{
    // RFC 3986, section 3.1. One letter before the colon would be a drive.
    static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]+:"));
    return scheme.match(file).hasMatch();
}

bool openWithDesktop(const QString &file)
{
    return QProcess::startDetached(QStringLiteral("xdg-open"), {file});
}

} // namespace

DesktopShell::DesktopShell(const DeviceFolder &device)
    : m_device(device)
{
}

bool DesktopShell::execute(const ShellExecution &execution)
{
    const QString file = QString::fromStdU16String(execution.file);
    const QString directory =
        execution.directory ? m_device.localPath(QString::fromStdU16String(*execution.directory)) : QString();
    const QString parameters =
        execution.parameters ? QString::fromStdU16String(*execution.parameters) : QString();
    return start(file, parameters, directory, mostLinks);
}

std::optional<std::u16string> DesktopShell::specialFolder(SpecialFolder folder, bool create)
{
    const QString path =
        folder == SpecialFolder::Programs ? QStringLiteral("/Programs") : QStringLiteral("/Program Files");
    if (create)
        QDir().mkpath(m_device.localPath(path));
    return path.toStdU16String();
}

bool DesktopShell::exists(const std::u16string &path)
{
    return QFileInfo::exists(QString::fromStdU16String(localPath(path)));
}

std::u16string DesktopShell::localPath(const std::u16string &path)
{
    return m_device.localPath(QString::fromStdU16String(path)).toStdU16String();
}

void DesktopShell::listFolder(const std::u16string &directory,
                              const std::function<void(const FolderEntry &)> &take)
{
    listLocalFolder(QString::fromStdU16String(directory), take);
}

bool DesktopShell::start(const QString &file, const QString &parameters, const QString &directory,
                         int linksLeft) const
{
    const QString found = find(file);
    const QFileInfo info(found);
    if (!info.exists())
        return isAddress(found) && openWithDesktop(found);
    if (found.endsWith(QLatin1String(".lnk"), Qt::CaseInsensitive) && info.isFile())
        return linksLeft > 0 && startShortcut(found, linksLeft - 1);
    if (info.isFile() && info.isExecutable())
        return QProcess::startDetached(info.absoluteFilePath(), splitParameters(parameters), directory);
    return openWithDesktop(info.absoluteFilePath());
}

bool DesktopShell::startShortcut(const QString &shortcut, int linksLeft) const
{
    QFile file(shortcut);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const std::optional<ShortcutTarget> target = parseShortcut(file.read(largestShortcut));
    if (!target)
        return false;
    const QString directory = QFileInfo(find(target->file)).absolutePath();
    return start(target->file, target->parameters, directory, linksLeft);
}

QString DesktopShell::find(const QString &file) const
{
    QString path = m_device.localPath(file);
    if (path.contains(QLatin1Char('/')) || QFileInfo::exists(path))
        return path;
    QString inWindows = m_device.localPath(QLatin1String("/Windows/") + path);
    if (QFileInfo(inWindows).isFile())
        return inWindows;
    const QString onSearchPath = QStandardPaths::findExecutable(path);
    return onSearchPath.isEmpty() ? path : onSearchPath;
}

} // namespace platform
