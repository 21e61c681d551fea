#include "platform/desktop/localfolder.h"

#include <QtCore/QFile>

#include <dirent.h>
#include <memory>
#include <sys/stat.h>

namespace platform {

namespace {

struct CloseFolder
{
    void operator()(DIR *folder) const { ::closedir(folder); }
};

bool isFolder(DIR *folder, const dirent &entry)
{
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_DIR;
    struct stat info = {};
    return ::fstatat(::dirfd(folder), entry.d_name, &info, 0) == 0 && S_ISDIR(info.st_mode);
}

/// Empty if the name cannot be told as text.
QString nameOf(const dirent &entry)
{
    const QByteArray bytes(entry.d_name);
    const QString name = QFile::decodeName(bytes);
    return QFile::encodeName(name) == bytes ? name : QString();
}

} // namespace

void listLocalFolder(const QString &directory, const std::function<void(const FolderEntry &)> &take)
{
    if (directory.contains(QChar(QChar::Null)))
        return; // the system would take what stands before it for the name
    const std::unique_ptr<DIR, CloseFolder> folder(::opendir(QFile::encodeName(directory).constData()));
    if (!folder)
        return;
    while (const dirent *entry = ::readdir(folder.get())) {
        const QString name = nameOf(*entry);
        if (!name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..")) {
            const std::u16string_view text(reinterpret_cast<const char16_t *>(name.utf16()),
                                           static_cast<std::size_t>(name.size()));
            take({text, isFolder(folder.get(), *entry), text.front() == u'.'});
        }
    }
}

} // namespace platform
