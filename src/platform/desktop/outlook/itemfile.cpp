#include "platform/desktop/outlook/itemfile.h"

#include "platform/desktop/filedescriptor.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

struct FolderCloser
{
    void operator()(DIR *folder) const { closedir(folder); }
};

constexpr qint64 millisecondsPerSecond = 1000;
constexpr qint64 nanosecondsPerMillisecond = 1000000;

FileState toState(const struct stat &entry)
{
    return {entry.st_dev, entry.st_ino, entry.st_size, entry.st_mtim};
}

FileContent failure(const FileState &state, const QString &problem)
{
    return {state, QByteArray(), problem, true};
}

QString systemProblem()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

} // namespace

bool FileState::operator==(const FileState &other) const
{
    return device == other.device && number == other.number && size == other.size
        && modified.tv_sec == other.modified.tv_sec && modified.tv_nsec == other.modified.tv_nsec;
}

qint64 FileState::age() const
{
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    return (now.tv_sec - modified.tv_sec) * millisecondsPerSecond
        + (now.tv_nsec - modified.tv_nsec) / nanosecondsPerMillisecond;
}

FileEntry FileEntry::at(const QByteArray &path)
{
    FileEntry entry;
    struct stat found = {};
    if (lstat(path.constData(), &found) != 0)
        return entry;
    entry.exists = true;
    entry.isLink = S_ISLNK(found.st_mode);
    if (!entry.isLink || stat(path.constData(), &found) == 0)
        entry.state = toState(found);
    return entry;
}

FileContent FileContent::read(const QByteArray &path)
{
    struct stat entry = {};
    if (stat(path.constData(), &entry) != 0)
        return failure({}, systemProblem());
    const QString noFile = QStringLiteral("it is no regular file");
    if (!S_ISREG(entry.st_mode)) // opening a device may do something
        return failure(toState(entry), noFile);
    const FileDescriptor file(open(path.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isValid() || fstat(file.get(), &entry) != 0)
        return failure(toState(entry), systemProblem());
    const FileState state = toState(entry);
    if (!S_ISREG(entry.st_mode))
        return failure(state, noFile);
    if (state.size > largestSize)
        return failure(state, QStringLiteral("it is larger than 16 MiB"));
    // Room for one byte more shows the end of the file without another call.
    QByteArray bytes(static_cast<int>(state.size) + 1, Qt::Uninitialized);
    int size = 0;
    while (size < bytes.size()) {
        const ssize_t count =
            ::read(file.get(), bytes.data() + size, static_cast<std::size_t>(bytes.size() - size));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return failure(state, systemProblem());
        if (count == 0)
            break;
        size += static_cast<int>(count);
    }
    bytes.truncate(size);
    const bool isSteady = fstat(file.get(), &entry) == 0 && toState(entry) == state;
    return {state, bytes, QString(), isSteady};
}

std::optional<std::vector<QByteArray>> itemFileNames(const QByteArray &folder, const QByteArray &ending)
{
    const std::unique_ptr<DIR, FolderCloser> entries(opendir(folder.constData()));
    if (!entries)
        return std::nullopt;
    std::vector<QByteArray> names;
    while (const dirent *entry = readdir(entries.get())) {
        const QByteArray name(static_cast<const char *>(entry->d_name));
        if (name.endsWith(ending) && !name.startsWith('.'))
            names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace platform
