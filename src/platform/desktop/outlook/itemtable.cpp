#include "platform/desktop/outlook/itemtable.h"

#include "platform/desktop/outlook/itemidentifiers.h"
#include "platform/desktop/terminaltext.h"

#include <QtCore/QFile>

#include <algorithm>

namespace platform {

ItemTable::ItemTable(const QByteArray &path, OutlookFolder folder, ItemIdentifiers &identifiers)
    : m_path(path)
    , m_folder(folder)
    , m_identifiers(identifiers)
{
}

const StoredFile *ItemTable::file(const QByteArray &name) const
{
    const auto found = m_files.find(name);
    return found != m_files.end() ? &found->second : nullptr;
}

void ItemTable::setState(const QByteArray &name, const std::optional<FileState> &state, bool isDoubtful)
{
    StoredFile &file = m_files.at(name);
    file.state = state;
    file.isDoubtful = isDoubtful;
}

ItemList ItemTable::items()
{
    if (m_list)
        return m_list;
    std::vector<StoredItem> items;
    items.reserve(m_fileOf.size());
    for (const auto &[name, file] : m_files)
        items.insert(items.end(), file.items.cbegin(), file.items.cend());
    std::sort(items.begin(), items.end(), [](const StoredItem &a, const StoredItem &b) {
        const int comparison = a.order.compare(b.order);
        return comparison != 0 ? comparison < 0 : a.id < b.id;
    });
    m_list = std::make_shared<const std::vector<StoredItem>>(std::move(items));
    return m_list;
}

const StoredItem *ItemTable::item(std::int32_t id) const
{
    const auto name = m_fileOf.find(id);
    if (name == m_fileOf.end())
        return nullptr;
    const std::vector<StoredItem> &items = m_files.at(name->second).items;
    const auto found =
        std::find_if(items.cbegin(), items.cend(), [id](const StoredItem &item) { return item.id == id; });
    return found != items.cend() ? &*found : nullptr;
}

bool ItemTable::accept(std::vector<FileReading> &readings)
{
    if (readings.empty())
        return true;
    if (!identify(readings)) {
        const QString problem = m_identifiers.problem();
        if (problem != m_toldProblem)
            qWarning("%s", qUtf8Printable(onOneLine(problem)));
        m_toldProblem = problem;
        return false;
    }
    m_toldProblem.clear();
    std::set<std::int32_t> ids;
    for (const FileReading &reading : readings) {
        for (const StoredItem &item : reading.file.items)
            ids.insert(item.id);
    }
    Digests moved;
    for (FileReading &reading : readings)
        replace(reading, ids, moved);
    m_list.reset();
    return true;
}

bool ItemTable::identify(std::vector<FileReading> &readings)
{
    std::vector<ItemIdentity> identities;
    for (const FileReading &reading : readings) {
        std::map<QByteArray, int> places;
        for (const StoredItem &item : reading.file.items) {
            const QByteArray uid = item.item->uid().toUtf8();
            identities.push_back({uid, reading.name, places[uid]++});
        }
    }
    const auto ids = m_identifiers.assign(m_folder, m_path, identities);
    if (!ids)
        return false;
    auto id = ids->cbegin();
    for (FileReading &reading : readings) {
        for (StoredItem &item : reading.file.items)
            item.id = *id++;
    }
    return true;
}

/// Puts a reading into the place of what its file held, and tells of it. @p ids are those of all readings of
/// now; an item that is among them is not lost with its file, but goes to @p moved for a while.
void ItemTable::replace(FileReading &reading, const std::set<std::int32_t> &ids, Digests &moved)
{
    drop(reading, ids, moved);
    if (reading.isGone) {
        m_files.erase(reading.name);
        return;
    }
    for (const StoredItem &item : reading.file.items)
        place(item, reading, moved);
    StoredFile &file = m_files[reading.name];
    if (!reading.file.problem.isEmpty()
        && (file.problem != reading.file.problem || file.state != reading.file.state))
        qWarning("%s: %s", qUtf8Printable(onOneLine(QFile::decodeName(pathOf(reading.name)))),
                 qUtf8Printable(onOneLine(reading.file.problem)));
    file = std::move(reading.file);
}

/// Drops what the file does not hold any more.
void ItemTable::drop(const FileReading &reading, const std::set<std::int32_t> &ids, Digests &moved)
{
    std::set<std::int32_t> staying;
    for (const StoredItem &item : reading.file.items)
        staying.insert(item.id);
    const StoredFile &before = m_files[reading.name];
    for (const StoredItem &item : before.items) {
        if (staying.count(item.id) > 0)
            continue;
        m_fileOf.erase(item.id);
        if (ids.count(item.id) > 0)
            moved[item.id] = before.digest;
        else
            tell(OutlookMessage::itemDeleted, item.id);
    }
}

void ItemTable::place(const StoredItem &item, const FileReading &reading, const Digests &moved)
{
    const auto owner = m_fileOf.find(item.id);
    const auto move = moved.find(item.id);
    if (owner == m_fileOf.end() && move == moved.end())
        tell(OutlookMessage::itemCreated, item.id);
    else if ((owner != m_fileOf.end() ? m_files[owner->second].digest : move->second) != reading.file.digest)
        tell(OutlookMessage::itemChanged, item.id);
    if (owner != m_fileOf.end() && owner->second != reading.name) {
        auto &former = m_files[owner->second].items;
        former.erase(std::remove_if(former.begin(), former.end(),
                                    [&item](const StoredItem &other) { return other.id == item.id; }),
                     former.end());
    }
    m_fileOf[item.id] = reading.name;
}

void ItemTable::tell(std::uint32_t message, std::int32_t id) const
{
    if (m_listener)
        m_listener(message, id);
}

} // namespace platform
