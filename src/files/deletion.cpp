#include "files/paths.h"
#include "kestmainprovider/kestmessagebox.h"
#include "orvanecore/functionarguments.h"
#include "orvanecore/iapplication.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <optional>

namespace {

bool isBelowAsText(const QString &path, const QString &directory)
{
    return path.startsWith(directory) && path.size() != directory.size();
}

QString parentPath(const QString &path)
{
    return path.left(std::max(path.lastIndexOf(QLatin1Char('/')), 0));
}

/// @p path with every link and ".." followed; of one that does not exist, as far as it does.
QString followed(const QString &path)
{
    QString existing = path;
    while (!existing.isEmpty()) {
        const QString canonical = QFileInfo(existing).canonicalFilePath();
        if (!canonical.isEmpty())
            return QDir::cleanPath(canonical + path.mid(existing.size()));
        existing = parentPath(existing);
    }
    return QDir::cleanPath(path);
}

/// Whether what is to be deleted stands inside @p directory once the way to it has been followed.
/// Its own name is not: a link is deleted, not what it leads to.
bool standsInside(const QString &path, const QString &directory)
{
    const QString name = path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
    const bool namesItself = !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..");
    const QString parent = followed(parentPath(namesItself ? path : followed(path)));
    const QString root = followed(directory);
    return parent == root || parent.startsWith(root + QLatin1Char('/'));
}

/// The path that a script means, or nothing if it is absolute and not below @p directory. The comparison
/// is one of texts; what a relative path comes to is for standsInside() to say.
std::optional<QString> targetPath(const QString &path, const QString &directory)
{
    // The system ends a name at a null, so it would delete something else than was checked.
    if (path.contains(QChar(QChar::Null)))
        return std::nullopt;
    if (!isAbsolutePath(path))
        return KestCommandProvider::resolvedPath(path);
    return isBelowAsText(path, directory) ? std::optional(path) : std::nullopt;
}

void reportRefusal()
{
    KestMessageBox::information(
        nullptr, QCoreApplication::translate("KestCommandProvider", "Error"),
        QCoreApplication::translate("KestCommandProvider",
                                    "Cannot delete a path outside the application directory."));
}

void removeDirectory(QDir &dir)
{
    const QString name = dir.dirName();
    if (dir.cdUp())
        dir.rmdir(name);
}

} // namespace

void KestCommandProvider::deleteFile(FunctionArguments *arguments)
{
    if (!checkArguments("deleteFile", *arguments, {1, 1, {ArgumentType::String}}))
        return;

    const QString base = m_application->applicationPath();
    const std::optional<QString> path = targetPath(arguments->argument(0).toString(), base);
    if (!path || !standsInside(*path, base))
        return reportRefusal();
    QFile::remove(*path);
}

void KestCommandProvider::deleteDir(FunctionArguments *arguments)
{
    if (!checkArguments("deleteDir", *arguments, {1, 2, {ArgumentType::String}}))
        return;

    const QString base = m_application->applicationPath();
    std::optional<QString> path = targetPath(arguments->argument(0).toString(), base);
    if (!path)
        return reportRefusal();
    if (path->endsWith(QLatin1Char('\\')) || path->endsWith(QLatin1Char('/')))
        path->chop(1);

    QDir dir(*path);
    const QString absolute = dir.absolutePath();
    if (!isBelowAsText(absolute, base) || !standsInside(*path, base) || !standsInside(absolute, base))
        return reportRefusal();
    dir.setPath(absolute); // what has been checked is what is deleted

    const bool recursive =
        arguments->argumentCount() == 2 && arguments->argument(1).isBool() && arguments->argument(1).toBool();
    if (QFileInfo(absolute).isSymLink())
        QFile::remove(absolute);
    else if (recursive)
        deleteRecursive(dir);
    else
        removeDirectory(dir);
}

void KestCommandProvider::deleteRecursive(QDir &dir)
{
    // QDir::System, or links that lead nowhere would stay and keep their folder.
    const QFileInfoList entries = dir.entryInfoList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (const QFileInfo &entry : entries) {
        if (entry.isDir() && !entry.isSymLink()) {
            QDir subdirectory(entry.absoluteFilePath());
            deleteRecursive(subdirectory);
        } else {
            QFile::remove(entry.absoluteFilePath());
        }
    }
    removeDirectory(dir);
}
