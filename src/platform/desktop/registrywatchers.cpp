#include "platform/desktop/registrywatchers.h"

#include "platform/desktop/sqlitedatabase.h"

#include <QtCore/QFile>

#include <fcntl.h>

namespace platform {

namespace {

constexpr int permissions = 0666;

struct flock lockOf(qint64 watcher)
{
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = watcher;
    lock.l_len = 1;
    return lock;
}

bool remove(SqliteDatabase &database, qint64 watcher)
{
    SqliteStatement remove = database.prepare("DELETE FROM watcher WHERE id = ?");
    remove << watcher;
    return remove.run();
}

} // namespace

RegistryWatchers::RegistryWatchers(const QString &deviceFolder)
    : m_locks(::open(QFile::encodeName(deviceFolder + QLatin1String("/registry.watchers")).constData(),
                     O_RDWR | O_CREAT | O_CLOEXEC, permissions))
{
}

bool RegistryWatchers::enter(SqliteDatabase &database)
{
    if (!database
             .prepare("INSERT INTO watcher (position)"
                      " VALUES (coalesce((SELECT seq FROM sqlite_sequence WHERE name = 'change'), 0))")
             .run())
        return false;
    m_own = database.lastInsertedId();
    // Of the open file, not of the process (fcntl(2)): two watchers in one process must not share theirs.
    struct flock lock = lockOf(m_own);
    return fcntl(m_locks.get(), F_OFD_SETLK, &lock) == 0;
}

bool RegistryWatchers::setPosition(SqliteDatabase &database, qint64 position) const
{
    SqliteStatement update = database.prepare("UPDATE watcher SET position = ? WHERE id = ?");
    update << position << m_own;
    return update.run();
}

bool RegistryWatchers::leave(SqliteDatabase &database) const
{
    return remove(database, m_own);
}

bool RegistryWatchers::hasDead(SqliteDatabase &database) const
{
    return !dead(database).empty();
}

bool RegistryWatchers::cutChanges(SqliteDatabase &database) const
{
    for (const qint64 watcher : dead(database)) {
        if (!remove(database, watcher))
            return false;
    }
    return database
        .prepare(
            "DELETE FROM change WHERE sequence <= coalesce((SELECT min(position) FROM watcher), sequence)")
        .run();
}

std::vector<qint64> RegistryWatchers::dead(SqliteDatabase &database) const
{
    std::vector<qint64> dead;
    SqliteStatement all = database.prepare("SELECT id FROM watcher");
    while (all.next()) {
        if (!isAlive(all.number(0)))
            dead.push_back(all.number(0));
    }
    return dead;
}

bool RegistryWatchers::isAlive(qint64 watcher) const
{
    struct flock lock = lockOf(watcher);
    const bool isLocked = fcntl(m_locks.get(), F_OFD_GETLK, &lock) != 0 || lock.l_type != F_UNLCK;
    return watcher == m_own || isLocked; // the system does not tell of our own lock
}

} // namespace platform
