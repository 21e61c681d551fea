#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QStringList>

/// What a folder of the Programs menu holds, as it was read once. Names, sorted regardless of upper and lower
/// case. GUI thread only.
struct FolderCache
{
    /// Reads a folder of the device. One that is not there has nothing in it.
    static FolderCache read(const QString &folder);

    /// Whether the folder has not changed since. That takes one look at its time.
    bool isCurrent(const QString &folder) const;

    QStringList folders;
    QStringList shortcuts; ///< with their endings; "icon.lnk", the folder's own icon, included
    QDateTime lastModified; ///< invalid: the folder has changed so lately that its time tells nothing
};
