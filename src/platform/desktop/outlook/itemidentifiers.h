#pragma once

#include "platform/desktop/sqlitedatabase.h"
#include "platform/pocketoutlook.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace platform {

/// By what an item is known again.
struct ItemIdentity
{
    QByteArray uid; ///< may be empty
    QByteArray file; ///< its name
    int place = 0; ///< among the items of that uid in the file, from 0
};

/// The object identifiers of a device's items, in a SQLite file that all processes share. An identifier stays
/// with its item, also when its file is renamed, or deleted and there again, and is never given to another
/// one. One thread at a time.
class ItemIdentifiers
{
public:
    /// Opens the file or makes it. False on failure; see problem(). While another program has the file, this
    /// and other operations wait, but for a moment only.
    bool open(const QString &file);

    /// What went wrong in the latest operation, in plain words.
    QString problem() const { return m_file + QLatin1String(": ") + m_problem; }

    /// The identifiers of items in @p path, which is the place of @p folder, in their order. New items get
    /// new ones; if there are none, nothing is written. Nothing on failure; see problem().
    std::optional<std::vector<std::int32_t>> assign(OutlookFolder folder, const QByteArray &path,
                                                    const std::vector<ItemIdentity> &items);

    /// The folder of the item that has or had that identifier.
    std::optional<OutlookFolder> folderOf(std::int32_t id);

private:
    /// In these, nothing means that it failed, and 0 that there is none.
    using FoundId = std::optional<qint64>;

    bool hasTables();
    bool makeTables();
    bool assignKnown(qint64 folder, const std::vector<ItemIdentity> &items, std::vector<std::int32_t> &ids);
    bool assignAll(qint64 folder, const QByteArray &path, const std::vector<ItemIdentity> &items,
                   std::vector<std::int32_t> &ids);
    FoundId idOf(qint64 folder, const QByteArray &path, const ItemIdentity &item);
    FoundId known(qint64 folder, const ItemIdentity &item);
    FoundId ofGoneFile(qint64 folder, const QByteArray &path, const ItemIdentity &item);
    bool fail(const QString &problem);

    SqliteDatabase m_database;
    QString m_file;
    QString m_problem;
};

} // namespace platform
