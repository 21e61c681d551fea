#pragma once

#include "platform/desktop/filedescriptor.h"

#include <QtCore/QString>

#include <vector>

namespace platform {

class SqliteDatabase;

/// Who watches the registry, and which changes are kept for them.
///
/// The registry's table "change" lists changes as long as the table "watcher" has a row. Each row tells how
/// far its watcher has read; the list is cut up to the slowest. A watcher also holds a lock on one byte of
/// the file "registry.watchers", at the place of its number, so that the rows of killed processes are known
/// and go. For a process that is only stopped the list grows until it goes on: nothing is lost.
///
/// Functions on the database are to be called inside a transaction; they return false if it has to be rolled
/// back. An object belongs to one thread at a time.
class RegistryWatchers
{
public:
    explicit RegistryWatchers(const QString &deviceFolder);

    /// Enters this object as a watcher that has seen everything so far. It counts as living until leave() or
    /// until it is destroyed.
    bool enter(SqliteDatabase &database);

    /// This watcher has read the list up to the change of number @p position.
    bool setPosition(SqliteDatabase &database, qint64 position) const;

    bool leave(SqliteDatabase &database) const;

    /// Whether there is a watcher whose process has gone. Needs no transaction.
    bool hasDead(SqliteDatabase &database) const;

    /// Drops watchers whose processes have gone, and changes that no living one has to see.
    bool cutChanges(SqliteDatabase &database) const;

private:
    std::vector<qint64> dead(SqliteDatabase &database) const;
    bool isAlive(qint64 watcher) const;

    const FileDescriptor m_locks;
    qint64 m_own = 0; ///< 0: not entered
};

} // namespace platform
