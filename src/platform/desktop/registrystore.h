#pragma once

#include "platform/desktop/registrywatchers.h"
#include "platform/desktop/sqlitedatabase.h"
#include "platform/registry.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <functional>
#include <mutex>
#include <optional>

namespace platform {

class DeviceFolder;

/// A value as it is stored: raw bytes with a type.
struct RegistryValue
{
    QString name; ///< empty: the key's default value
    quint32 type = RegistryType::none;
    QByteArray data;
};

/// The registry of a simulated device: "registry.db" in its folder, a SQLite file that all processes share.
///
/// It is opened on first use; a missing one is made and filled with sample data. Names compare without
/// regard to letter case and keep their first spelling. Each operation is a transaction of its own, unless it
/// runs inside inTransaction(). Failures, a file that cannot be opened included, are told by the results and
/// explained by problem(). Any thread.
class RegistryStore
{
public:
    /// In bytes. Far below what SQLite can keep.
    static constexpr quint32 largestValue = 0x4000000;

    /// Identifies a key until it is removed.
    using Key = qint64;

    explicit RegistryStore(const DeviceFolder &device);
    ~RegistryStore();

    /// What went wrong in the latest operation of whichever thread, in plain words; empty if nothing did.
    QString problem() const;

    /// The key of a root, or below it with names joined by backslashes. An empty path is the root itself.
    std::optional<Key> find(RegistryRoot root, const QString &path);

    /// As find(), but makes what is missing of the path. Nothing for a path that no key can have; see
    /// problemWithKeyPath().
    std::optional<Key> findOrMake(RegistryRoot root, const QString &path);

    /// Removes a key with all that is below it; of a root, only what is in and below it.
    bool removeKey(Key key);

    /// The names of the keys directly below a key, sorted.
    QStringList subkeys(Key key);

    /// The values of a key, sorted by name.
    QList<RegistryValue> values(Key key);

    std::optional<RegistryValue> value(Key key, const QString &name);

    /// Type and size of a value, without reading it.
    std::optional<RegistryValueInfo> info(Key key, const QString &name);

    /// Writes a value. False also if the key has been removed.
    bool setValue(Key key, const RegistryValue &value);

    /// False also if there is no such value.
    bool removeValue(Key key, const QString &name);

    /// Carries out several operations in one transaction: all of them, or none if @p work returns false.
    bool inTransaction(const std::function<bool()> &work);

    /// The same for reading: all operations see the registry as it is at the first of them, and no writer
    /// has to wait.
    bool inSnapshot(const std::function<bool()> &work);

    /// The number of the latest change to any value. It is counted only while somebody watches; see
    /// RegistryWatch.
    std::optional<qint64> latestChange();

    /// The path of a value's key and its name as they are compared, for finding them in the list of changes.
    static QByteArray comparablePath(RegistryRoot root, const QString &path);
    static QByteArray comparableName(const QString &name);

private:
    enum class Access {
        Read,
        Write,
    };

    /// Begins an operation: opens the file if that has yet to be done.
    bool isReady();
    bool open();
    bool hasTables();
    bool makeTables();
    bool inTransaction(Access access, const std::function<bool()> &work);
    bool fail(const QString &problem);
    bool complete(SqliteStatement statement);
    std::optional<Key> keyAt(const QByteArray &comparablePath);
    std::optional<Key> makeKey(Key parent, const QByteArray &path, const QString &name);
    bool commit(Access access);

    const QString m_folder;
    mutable std::recursive_mutex m_mutex;
    std::optional<RegistryWatchers> m_watchers; ///< once the file is open
    SqliteDatabase m_database;
    bool m_isOpen = false;
    bool m_isInTransaction = false;
    int m_commits = 0;
    QString m_problem;
};

} // namespace platform
