#include "platform/desktop/registrystore.h"

#include "platform/desktop/devicefolder.h"
#include "platform/desktop/regfile.h"
#include "platform/desktop/registrykeypath.h"
#include "platform/desktop/sampleregistry.h"

#include <QtCore/QFile>

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>

namespace platform {

namespace {

constexpr int commitsBetweenCuts = 4096;
constexpr qint64 layoutVersion = 1;

// A key's path begins with the number of its root; the path and a value's name also as they are compared.
const char layout[] =
    "CREATE TABLE key (id INTEGER PRIMARY KEY AUTOINCREMENT, parent INTEGER REFERENCES key (id),"
    " path BLOB NOT NULL UNIQUE, name BLOB NOT NULL);"
    "CREATE INDEX key_parent ON key (parent);"
    "CREATE TABLE value (key INTEGER NOT NULL REFERENCES key (id), comparable BLOB NOT NULL, name BLOB NOT "
    "NULL,"
    " type INTEGER NOT NULL, data BLOB NOT NULL, PRIMARY KEY (key, comparable));"
    "CREATE TABLE watcher (id INTEGER PRIMARY KEY AUTOINCREMENT, position INTEGER NOT NULL);"
    "CREATE TABLE change (sequence INTEGER PRIMARY KEY AUTOINCREMENT, path BLOB NOT NULL, name BLOB NOT NULL,"
    " data BLOB);"
    "CREATE TRIGGER value_made AFTER INSERT ON value WHEN EXISTS (SELECT 1 FROM watcher) BEGIN"
    " INSERT INTO change (path, name, data)"
    " SELECT path, new.comparable, new.data FROM key WHERE id = new.key; END;"
    "CREATE TRIGGER value_changed AFTER UPDATE ON value"
    " WHEN (old.type <> new.type OR old.data <> new.data) AND EXISTS (SELECT 1 FROM watcher) BEGIN"
    " INSERT INTO change (path, name, data)"
    " SELECT path, new.comparable, new.data FROM key WHERE id = new.key; END;"
    "CREATE TRIGGER value_removed AFTER DELETE ON value WHEN EXISTS (SELECT 1 FROM watcher) BEGIN"
    " INSERT INTO change (path, name, data)"
    " SELECT path, old.comparable, NULL FROM key WHERE id = old.key; END;"
    "INSERT INTO key (path, name) VALUES (x'3000', x''), (x'3100', x''), (x'3200', x''), (x'3300', x'');"
    "PRAGMA user_version = 1;";

QByteArray toBytes(const QString &text)
{
    return QByteArray(reinterpret_cast<const char *>(text.utf16()),
                      text.size() * static_cast<int>(sizeof(QChar)));
}

QString toText(const QByteArray &bytes)
{
    QString text(bytes.size() / static_cast<int>(sizeof(QChar)), Qt::Uninitialized);
    std::copy_n(bytes.constData(), static_cast<std::size_t>(text.size()) * sizeof(QChar),
                reinterpret_cast<char *>(text.data()));
    return text;
}

// The system compares character by character; QString::toUpper() makes two of some.
QString withoutLetterCase(QString text)
{
    std::transform(text.cbegin(), text.cend(), text.begin(), [](QChar c) { return c.toUpper(); });
    return text;
}

} // namespace

RegistryStore::RegistryStore(const DeviceFolder &device)
    : m_folder(device.path())
{
}

RegistryStore::~RegistryStore() = default;

QString RegistryStore::problem() const
{
    const std::lock_guard<std::recursive_mutex> lock(m_mutex);
    return m_problem;
}

std::optional<RegistryStore::Key> RegistryStore::find(RegistryRoot root, const QString &path)
{
    const std::lock_guard<std::recursive_mutex> lock(m_mutex);
    return isReady() ? keyAt(comparablePath(root, path)) : std::nullopt;
}

std::optional<RegistryStore::Key> RegistryStore::findOrMake(RegistryRoot root, const QString &path)
{
    const std::lock_guard<std::recursive_mutex> lock(m_mutex);
    std::optional<Key> key = find(root, path);
    if (key || !m_problem.isEmpty())
        return key;
    const QString problem = problemWithKeyPath(path);
    if (!problem.isEmpty()) {
        fail(problem);
        return std::nullopt;
    }
    const QStringList names = path.split(QLatin1Char('\\'));
    inTransaction([&] {
        key = keyAt(comparablePath(root, QString()));
        for (int i = 0; key && i < names.size(); ++i) {
            const QByteArray here = comparablePath(root, names.mid(0, i + 1).join(QLatin1Char('\\')));
            const std::optional<Key> existing = keyAt(here);
            key = existing ? existing : makeKey(*key, here, names.at(i));
        }
        return key.has_value();
    });
    return key;
}

bool RegistryStore::removeKey(Key key)
{
    return inTransaction([&] {
        // The changes are listed with the path of their key, so the values have to go first.
        SqliteStatement values =
            m_database.prepare("WITH RECURSIVE below (id) AS (VALUES (?) UNION ALL"
                               " SELECT key.id FROM key JOIN below ON key.parent = below.id)"
                               " DELETE FROM value WHERE key IN below");
        SqliteStatement keys =
            m_database.prepare("WITH RECURSIVE below (id) AS (VALUES (?) UNION ALL"
                               " SELECT key.id FROM key JOIN below ON key.parent = below.id)"
                               " DELETE FROM key WHERE id IN below AND parent IS NOT NULL");
        values << key;
        keys << key;
        return complete(std::move(values)) && complete(std::move(keys));
    });
}

QStringList RegistryStore::subkeys(Key key)
{
    const std::lock_guard<std::recursive_mutex> lock(m_mutex);
    QStringList names;
    if (!isReady())
        return names;
    SqliteStatement select = m_database.prepare("SELECT name FROM key WHERE parent = ?");
    select << key;
    while (select.next())
        names.append(toText(select.bytes(0)));
    complete(std::move(select));
    std::sort(names.begin(), names.end(),
              [](const QString &a, const QString &b) { return withoutLetterCase(a) < withoutLetterCase(b); });
    return names;
}

QList<RegistryValue> RegistryStore::values(Key key)
{
    const std::lock_guard<std::recursive_mutex> lock(m_mutex);
    QList<RegistryValue> values;
    if (!isReady())
        return values;
    SqliteStatement select = m_database.prepare("SELECT name, type, data FROM value WHERE key = ?");
    select << key;
    while (select.next())
        values.append({toText(select.bytes(0)), static_cast<quint32>(select.number(1)), select.bytes(2)});
    complete(std::move(select));
    std::sort(values.begin(), values.end(), [](const RegistryValue &a, const RegistryValue &b) {
        return withoutLetterCase(a.name) < withoutLetterCase(b.name);
    });
    return values;
}

std::optional<RegistryValueInfo> RegistryStore::info(Key key, const QString &name)
{
    const std::lock_guard<std::recursive_mutex> lock(m_mutex);
    if (!isReady())
        return std::nullopt;
    SqliteStatement select =
        m_database.prepare("SELECT type, length(data) FROM value WHERE key = ? AND comparable = ?");
    select << key << comparableName(name);
    if (select.next())
        return RegistryValueInfo{static_cast<quint32>(select.number(0)),
                                 static_cast<quint32>(select.number(1))};
    complete(std::move(select));
    return std::nullopt;
}

std::optional<RegistryValue> RegistryStore::value(Key key, const QString &name)
{
    const std::lock_guard<std::recursive_mutex> lock(m_mutex);
    if (!isReady())
        return std::nullopt;
    SqliteStatement select =
        m_database.prepare("SELECT name, type, data FROM value WHERE key = ? AND comparable = ?");
    select << key << comparableName(name);
    if (select.next())
        return RegistryValue{toText(select.bytes(0)), static_cast<quint32>(select.number(1)),
                             select.bytes(2)};
    complete(std::move(select));
    return std::nullopt;
}

bool RegistryStore::setValue(Key key, const RegistryValue &value)
{
    const std::lock_guard<std::recursive_mutex> lock(m_mutex);
    if (value.name.size() > longestRegistryValueName
        || static_cast<quint32>(value.data.size()) > largestValue)
        return fail(QStringLiteral("the value's name or data is too long"));
    return inTransaction([&] {
        SqliteStatement write = m_database.prepare(
            "INSERT INTO value (key, comparable, name, type, data) VALUES (?, ?, ?, ?, ?)"
            " ON CONFLICT (key, comparable) DO UPDATE SET type = excluded.type, data = excluded.data");
        write << key << comparableName(value.name) << toBytes(value.name) << value.type << value.data;
        return complete(std::move(write));
    });
}

bool RegistryStore::removeValue(Key key, const QString &name)
{
    return inTransaction([&] {
        SqliteStatement remove = m_database.prepare("DELETE FROM value WHERE key = ? AND comparable = ?");
        remove << key << comparableName(name);
        return complete(std::move(remove)) && m_database.changedRows() > 0;
    });
}

bool RegistryStore::inTransaction(const std::function<bool()> &work)
{
    return inTransaction(Access::Write, work);
}

bool RegistryStore::inSnapshot(const std::function<bool()> &work)
{
    return inTransaction(Access::Read, work);
}

bool RegistryStore::inTransaction(Access access, const std::function<bool()> &work)
{
    const std::lock_guard<std::recursive_mutex> lock(m_mutex);
    if (!isReady())
        return false;
    if (m_isInTransaction)
        return work();
    if (!m_database.execute(access == Access::Write ? "BEGIN IMMEDIATE" : "BEGIN"))
        return fail(m_database.error());
    m_isInTransaction = true;
    const bool isDone = work() && commit(access);
    m_isInTransaction = false;
    if (!isDone)
        m_database.execute("ROLLBACK");
    return isDone;
}

std::optional<qint64> RegistryStore::latestChange()
{
    const std::lock_guard<std::recursive_mutex> lock(m_mutex);
    if (!isReady())
        return std::nullopt;
    SqliteStatement select =
        m_database.prepare("SELECT coalesce((SELECT seq FROM sqlite_sequence WHERE name = 'change'), 0)");
    return select.next() ? std::optional(select.number(0)) : std::nullopt;
}

QByteArray RegistryStore::comparablePath(RegistryRoot root, const QString &path)
{
    const auto number = static_cast<quint32>(root) - static_cast<quint32>(RegistryRoot::ClassesRoot);
    QString full = QString::number(number);
    if (!path.isEmpty())
        full += QLatin1Char('\\') + withoutLetterCase(path);
    // One at the end is allowed (RegOpenKeyExW).
    if (full.endsWith(QLatin1Char('\\')))
        full.chop(1);
    return toBytes(full);
}

QByteArray RegistryStore::comparableName(const QString &name)
{
    return toBytes(withoutLetterCase(name));
}

bool RegistryStore::isReady()
{
    m_problem.clear();
    return m_isOpen || open();
}

bool RegistryStore::open()
{
    if (!m_database.open(m_folder + QLatin1String("/registry.db"))
        || !m_database.execute("PRAGMA foreign_keys = ON"))
        return fail(m_database.error());
    m_watchers.emplace(m_folder);
    m_isOpen = true;
    m_isOpen =
        hasTables() || (m_problem.isEmpty() && inTransaction([this] { return hasTables() || makeTables(); }));
    if (!m_isOpen)
        return false;
    // Whether that succeeds is of no importance to who opens the file.
    if (m_watchers->hasDead(m_database))
        inTransaction([this] { return m_watchers->cutChanges(m_database); });
    m_problem.clear();
    return true;
}

bool RegistryStore::hasTables()
{
    SqliteStatement select = m_database.prepare("PRAGMA user_version");
    if (!select.next())
        return fail(m_database.error());
    if (select.number(0) > layoutVersion)
        return fail(QStringLiteral("a later version of holm has made it"));
    return select.number(0) == layoutVersion;
}

bool RegistryStore::makeTables()
{
    const RegFileContent samples = parseRegFile(QByteArray(sampleRegistry()));
    return (m_database.execute(layout) || fail(m_database.error())) && applyEdits(*this, samples.edits);
}

bool RegistryStore::fail(const QString &problem)
{
    m_problem = m_folder + QLatin1String("/registry.db: ") + problem;
    return false;
}

bool RegistryStore::complete(SqliteStatement statement)
{
    return statement.run() || fail(m_database.error());
}

std::optional<RegistryStore::Key> RegistryStore::keyAt(const QByteArray &comparablePath)
{
    SqliteStatement select = m_database.prepare("SELECT id FROM key WHERE path = ?");
    select << comparablePath;
    if (select.next())
        return select.number(0);
    complete(std::move(select));
    return std::nullopt;
}

std::optional<RegistryStore::Key> RegistryStore::makeKey(Key parent, const QByteArray &path,
                                                         const QString &name)
{
    SqliteStatement insert = m_database.prepare("INSERT INTO key (parent, path, name) VALUES (?, ?, ?)");
    insert << parent << path << toBytes(name);
    return complete(std::move(insert)) ? std::optional(m_database.lastInsertedId()) : std::nullopt;
}

bool RegistryStore::commit(Access access)
{
    const bool isWritten = access == Access::Write;
    if (isWritten && ++m_commits % commitsBetweenCuts == 0 && !m_watchers->cutChanges(m_database))
        return fail(m_database.error());
    if (!m_database.execute("COMMIT"))
        return fail(m_database.error());
    // Watchers look at each write to the log, which they may see before the change counts; this
    // tells them that now it does.
    if (isWritten)
        utimensat(AT_FDCWD, QFile::encodeName(m_database.file() + QLatin1String("-wal")).constData(), nullptr,
                  0);
    return true;
}

} // namespace platform
