#include "savelock.h"

#include <QtCore/QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

SaveLock::SaveLock(const QString &folder)
    : m_handle(open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    const int file = static_cast<int>(m_handle);
    while (file >= 0 && flock(file, LOCK_EX) != 0 && errno == EINTR) { }
}

SaveLock::~SaveLock()
{
    if (m_handle >= 0)
        close(static_cast<int>(m_handle));
}
