#include "platform/desktop/outlook/itemidentifiers.h"

#include <cerrno>
#include <chrono>
#include <limits>
#include <sys/stat.h>

namespace platform {

namespace {

constexpr qint64 layoutVersion = 1;
// All is done on the GUI thread.
constexpr std::chrono::milliseconds patience(200);

const char layout[] =
    "CREATE TABLE item (id INTEGER PRIMARY KEY AUTOINCREMENT, folder INTEGER NOT NULL, uid BLOB NOT NULL,"
    " file BLOB NOT NULL, place INTEGER NOT NULL, UNIQUE (folder, uid, file, place));"
    "PRAGMA user_version = 1;";

bool isGone(const QByteArray &file)
{
    struct stat entry = {};
    return lstat(file.constData(), &entry) != 0 && errno == ENOENT;
}

bool isIdentifier(qint64 id)
{
    return id > 0 && id <= std::numeric_limits<std::int32_t>::max();
}

} // namespace

bool ItemIdentifiers::open(const QString &file)
{
    m_file = file;
    m_problem.clear();
    const bool isOpen = m_database.open(file, patience)
        && (hasTables()
            || (m_problem.isEmpty() && m_database.inTransaction(SqliteDatabase::Access::Write, [this] {
                   return hasTables() || makeTables();
               })));
    return isOpen || fail(m_database.error());
}

std::optional<std::vector<std::int32_t>> ItemIdentifiers::assign(OutlookFolder folder, const QByteArray &path,
                                                                 const std::vector<ItemIdentity> &items)
{
    m_problem.clear();
    const auto number = static_cast<qint64>(folder);
    std::vector<std::int32_t> ids;
    ids.reserve(items.size());
    // A file that others hold or that cannot be written still tells what it knows.
    const bool isDone = items.empty() || m_database.inTransaction(SqliteDatabase::Access::Read, [&] {
        return assignKnown(number, items, ids);
    }) || m_database.inTransaction(SqliteDatabase::Access::Write, [&] {
        return assignAll(number, path, items, ids);
    }) || fail(m_database.error());
    return isDone ? std::optional(std::move(ids)) : std::nullopt;
}

bool ItemIdentifiers::assignKnown(qint64 folder, const std::vector<ItemIdentity> &items,
                                  std::vector<std::int32_t> &ids)
{
    for (const ItemIdentity &item : items) {
        const FoundId id = known(folder, item);
        if (!id || !isIdentifier(*id))
            return false;
        ids.push_back(static_cast<std::int32_t>(*id));
    }
    return true;
}

bool ItemIdentifiers::assignAll(qint64 folder, const QByteArray &path, const std::vector<ItemIdentity> &items,
                                std::vector<std::int32_t> &ids)
{
    ids.clear();
    for (const ItemIdentity &item : items) {
        const FoundId id = idOf(folder, path, item);
        if (!id)
            return false;
        if (!isIdentifier(*id))
            return fail(QStringLiteral("no identifiers are left"));
        ids.push_back(static_cast<std::int32_t>(*id));
    }
    return true;
}

std::optional<OutlookFolder> ItemIdentifiers::folderOf(std::int32_t id)
{
    SqliteStatement select = m_database.prepare("SELECT folder FROM item WHERE id = ?");
    select << id;
    return select.next() ? std::optional(static_cast<OutlookFolder>(select.number(0))) : std::nullopt;
}

bool ItemIdentifiers::hasTables()
{
    SqliteStatement select = m_database.prepare("PRAGMA user_version");
    if (!select.next())
        return fail(m_database.error());
    if (select.number(0) > layoutVersion)
        return fail(QStringLiteral("it is from a newer version of holm"));
    return select.number(0) == layoutVersion;
}

bool ItemIdentifiers::makeTables()
{
    return m_database.execute(layout);
}

ItemIdentifiers::FoundId ItemIdentifiers::idOf(qint64 folder, const QByteArray &path,
                                               const ItemIdentity &item)
{
    const FoundId same = known(folder, item);
    if (!same || *same != 0)
        return same;
    const FoundId gone = ofGoneFile(folder, path, item);
    if (!gone)
        return gone;
    if (*gone != 0) {
        SqliteStatement move = m_database.prepare("UPDATE item SET file = ?, place = ? WHERE id = ?");
        move << item.file << item.place << *gone;
        return move.run() ? gone : std::nullopt;
    }
    SqliteStatement insert =
        m_database.prepare("INSERT INTO item (folder, uid, file, place) VALUES (?, ?, ?, ?)");
    insert << folder << item.uid << item.file << item.place;
    return insert.run() ? FoundId(m_database.lastInsertedId()) : std::nullopt;
}

ItemIdentifiers::FoundId ItemIdentifiers::known(qint64 folder, const ItemIdentity &item)
{
    SqliteStatement select =
        m_database.prepare("SELECT id FROM item WHERE folder = ? AND uid = ? AND file = ? AND place = ?");
    select << folder << item.uid << item.file << item.place;
    if (select.next())
        return select.number(0);
    return select.hasFailed() ? std::nullopt : FoundId(0);
}

ItemIdentifiers::FoundId ItemIdentifiers::ofGoneFile(qint64 folder, const QByteArray &path,
                                                     const ItemIdentity &item)
{
    if (item.uid.isEmpty())
        return 0;
    SqliteStatement select =
        m_database.prepare("SELECT id, file FROM item WHERE folder = ? AND uid = ? ORDER BY place, id");
    select << folder << item.uid;
    while (select.next()) {
        if (isGone(path + '/' + select.bytes(1)))
            return select.number(0);
    }
    return select.hasFailed() ? std::nullopt : FoundId(0);
}

/// Keeps what went wrong first.
bool ItemIdentifiers::fail(const QString &problem)
{
    if (m_problem.isEmpty())
        m_problem = problem;
    return false;
}

} // namespace platform
