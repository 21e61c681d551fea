#include "programs/foldercache.h"

#include "dialogs/folderlisting.h"
#include "platform/platform.h"
#include "platform/shell.h"

#include <QtCore/QFileInfo>

namespace {

QString localPath(const QString &folder)
{
    return QString::fromStdU16String(platform::current().shell().localPath(folder.toStdU16String()));
}

QDateTime timeOf(const QString &folder)
{
    return QFileInfo(localPath(folder)).lastModified();
}

} // namespace

FolderCache FolderCache::read(const QString &folder)
{
    // File systems count time in steps: a change within the same one as the last would not be seen. Some
    // only know every other second.
    constexpr qint64 usualStep = 20; // milliseconds
    constexpr qint64 longestStep = 2000;
    // Asked before the folder is read, so that what changes meanwhile is seen.
    QDateTime time = timeOf(folder);
    const qint64 step = time.time().msec() == 0 ? longestStep : usualStep;
    if (qAbs(time.msecsTo(QDateTime::currentDateTime())) < step)
        time = QDateTime();
    const FolderListing listing =
        listFolder(localPath(folder), {QStringLiteral("*.lnk")}, HiddenFiles::LeftOut);
    return {listing.folders, listing.files, time};
}

bool FolderCache::isCurrent(const QString &folder) const
{
    return lastModified.isValid() && lastModified == timeOf(folder);
}
