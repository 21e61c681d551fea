#pragma once

#include "platform/desktop/outlook/folderwatch.h"
#include "platform/desktop/outlook/itemtable.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>

#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <set>

namespace platform {

/// A folder of files that hold items, of one kind each. It is read when it is first asked for, and then only
/// files that have changed are read again, when nobody writes to them any more. A file that cannot be read is
/// left out. GUI thread.
class ItemFolder : public QObject
{
public:
    struct Kind
    {
        OutlookFolder folder;
        QByteArray ending; ///< of the files' names
        ItemReader reader;
        QString (*order)(const OutlookItem &item); ///< see StoredItem
    };

    /// @p identifiers has to live as long.
    ItemFolder(const QByteArray &path, const Kind &kind, ItemIdentifiers &identifiers);

    /// All items as the files are now. Null if their identifiers are not to be had.
    ItemList items();

    /// An item as its file is now. Null if there is none; valid until the event loop or the next call.
    const StoredItem *item(std::int32_t id);

    /// Tells of each change from now on, once, in the order of the changes; one by a program that looks at
    /// items, too. From the event loop, or from items(). An empty listener ends that.
    void setListener(const ItemTable::Listener &listener);

private:
    /// Since when a file that somebody may be writing has been in a state, as far as is known.
    struct Rest
    {
        std::optional<FileState> state;
        QElapsedTimer since;
    };

    void refresh();
    void takeChanges();
    void listAll();
    void enqueue(const QByteArray &name);
    void takeTurn();
    bool readQueue(const std::function<bool()> &mayGoOn);
    void enqueueAgain(const std::vector<FileReading> &readings);
    void planTurns();
    std::optional<FileReading> look(const QByteArray &name);
    std::optional<FileReading> read(const QByteArray &name, const FileEntry &entry);
    bool isSettled(const QByteArray &name, const StoredFile &file);
    void setUnsettled(const QByteArray &name, const std::optional<FileState> &state);
    bool isYoung(const QByteArray &name, const std::optional<FileState> &state, qint64 age) const;

    const QByteArray m_path;
    const Kind m_kind;
    ItemTable m_table;
    std::unique_ptr<FolderWatch> m_watch; ///< null before the folder was asked for
    bool m_isListingDue = false; ///< it failed for want of something
    int m_listingError = 0;
    std::deque<QByteArray> m_queue; ///< names of files that may have changed
    std::set<QByteArray> m_isQueued;
    std::map<QByteArray, Rest> m_unsettled; ///< files that somebody may be writing, by their names
    std::set<QByteArray> m_links;
    QTimer m_turn;
    QTimer m_settling; ///< runs while there is something in m_unsettled, and a listener
};

} // namespace platform
