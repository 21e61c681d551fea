#pragma once

#include "platform/desktop/outlook/itemfile.h"
#include "platform/desktop/outlook/outlookitem.h"
#include "platform/pocketoutlook.h"

#include <map>
#include <optional>
#include <set>
#include <unordered_map>

namespace platform {

class ItemIdentifiers;

/// An item of a file with what the store knows of it.
struct StoredItem
{
    std::int32_t id = 0; ///< the object identifier
    std::shared_ptr<const OutlookItem> item;
    QByteArray path; ///< of its file
    std::size_t index = 0; ///< in its file
    QString order; ///< its place in the folder, and among the same ones by identifier
};

/// What a folder held at a moment, in its order. Never changes.
using ItemList = std::shared_ptr<const std::vector<StoredItem>>;

/// What is known of a file.
struct StoredFile
{
    std::optional<FileState> state; ///< in which it was read; a link that leads nowhere has none
    bool isDoubtful = false; ///< its content may have changed, or may be read at last, in the same state
    QByteArray digest; ///< of its content, empty if it could not be read
    QString problem;
    std::vector<StoredItem> items;
};

/// A file that has changed.
struct FileReading
{
    QByteArray name;
    bool isGone = false;
    StoredFile file; ///< its items have no identifiers yet
};

/// What the files of a folder held when they were last read, and who is who among their items. A file that
/// cannot be read is told on standard error, once for each of its states. GUI thread.
class ItemTable
{
public:
    /// Told in one of OutlookMessage's messages.
    using Listener = std::function<void(std::uint32_t message, std::int32_t id)>;

    /// @p identifiers has to live as long.
    ItemTable(const QByteArray &path, OutlookFolder folder, ItemIdentifiers &identifiers);

    QByteArray pathOf(const QByteArray &name) const { return m_path + '/' + name; }

    /// By their names.
    const std::map<QByteArray, StoredFile> &files() const { return m_files; }

    /// Null if it is not known.
    const StoredFile *file(const QByteArray &name) const;

    /// A known file has another state, but the same content.
    void setState(const QByteArray &name, const std::optional<FileState> &state, bool isDoubtful);

    /// Puts readings into the place of what their files held, and tells of each change. False if the items'
    /// identifiers are not to be had, which is told on standard error, once; nothing has changed then but the
    /// readings, which can be given again.
    bool accept(std::vector<FileReading> &readings);

    /// All items.
    ItemList items();

    /// Null if there is none. Valid until the next change.
    const StoredItem *item(std::int32_t id) const;

    void setListener(const Listener &listener) { m_listener = listener; }
    bool hasListener() const { return m_listener != nullptr; }

private:
    using Digests = std::map<std::int32_t, QByteArray>;

    bool identify(std::vector<FileReading> &readings);
    void replace(FileReading &reading, const std::set<std::int32_t> &ids, Digests &moved);
    void drop(const FileReading &reading, const std::set<std::int32_t> &ids, Digests &moved);
    void place(const StoredItem &item, const FileReading &reading, const Digests &moved);
    void tell(std::uint32_t message, std::int32_t id) const;

    const QByteArray m_path;
    const OutlookFolder m_folder;
    ItemIdentifiers &m_identifiers;
    Listener m_listener;
    std::map<QByteArray, StoredFile> m_files;
    std::unordered_map<std::int32_t, QByteArray> m_fileOf; ///< by identifier
    QString m_toldProblem; ///< with the identifiers, while it lasts
    ItemList m_list; ///< null if it is out of date
};

} // namespace platform
