#pragma once

#include <QtCore/QStringList>

/// The names in a folder, each list sorted by name with upper and lower case as the same.
struct FolderListing
{
    QStringList folders; ///< without hidden ones
    QStringList files; ///< those that are no regular files included
};

/// Whether files count that the system hides. Hidden folders never do.
enum class HiddenFiles { Listed, LeftOut };

/// Lists a folder. @p filters are wildcards for the files' names; "*.*" stands for every file, also one
/// without a dot, and without any filter there are no files. A folder that is not there or cannot be read
/// gives empty lists.
FolderListing listFolder(const QString &directory, const QStringList &filters,
                         HiddenFiles hiddenFiles = HiddenFiles::Listed);
