#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <ctime>
#include <optional>
#include <sys/types.h>
#include <vector>

namespace platform {

/// Which file stands at a path, in which state. The same state means the same content, if the file was not
/// written in the very moment in which it was looked at.
struct FileState
{
    dev_t device = 0;
    ino_t number = 0;
    off_t size = 0;
    timespec modified = {};

    bool operator==(const FileState &other) const;
    bool operator!=(const FileState &other) const { return !(*this == other); }

    /// How long ago it was written, in milliseconds; negative if the clock has been set back since.
    qint64 age() const;
};

/// What stands at a path, links followed.
struct FileEntry
{
    bool exists = false; ///< also if it is a link that leads nowhere
    bool isLink = false;
    std::optional<FileState> state;

    static FileEntry at(const QByteArray &path);
};

/// The whole of a small file.
struct FileContent
{
    static constexpr off_t largestSize = 16 << 20;

    FileState state; ///< from before it was read
    QByteArray bytes;
    QString problem; ///< empty, or why there are no bytes, in plain words
    bool isSteady = true; ///< it did not change while it was read

    /// Whatever stands there, it does not wait.
    static FileContent read(const QByteArray &path);
};

/// The names of a folder's files that may hold items, in order: as programs that keep such folders have it,
/// they have that ending and do not begin with a dot. As bytes, for not each makes a QString. Nothing if the
/// folder cannot be read; errno tells why.
std::optional<std::vector<QByteArray>> itemFileNames(const QByteArray &folder, const QByteArray &ending);

} // namespace platform
