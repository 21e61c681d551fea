#include "platform/desktop/outlook/itemfolder.h"

#include "platform/desktop/terminaltext.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QFile>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>

namespace platform {

namespace {

using std::chrono::milliseconds;

// Several events tell of one save, some of them of a moment in which the file is away.
constexpr milliseconds pauseBeforeReading(10);
constexpr qint64 longestTurn = 4;
constexpr milliseconds settlingPause(250);
constexpr milliseconds pauseAfterFailure(1000);
// How long, in milliseconds, nobody may write to a file before it counts as complete as it is: one of which
// it is not known whether anybody writes to it, and one that was not closed since the latest writing.
constexpr qint64 youth = 2000;
constexpr qint64 longestWriting = 10000;
// The time of a change is taken from a clock that ticks this often at least, in milliseconds.
constexpr qint64 clockTick = 40;

// In the very moment in which a file is written it may be written once more without a sign of that.
bool isJustWritten(const std::optional<FileState> &state)
{
    return state && state->age() >= 0 && state->age() < clockTick;
}

} // namespace

ItemFolder::ItemFolder(const QByteArray &path, const Kind &kind, ItemIdentifiers &identifiers)
    : m_path(path)
    , m_kind(kind)
    , m_table(path, kind.folder, identifiers)
{
    m_turn.setSingleShot(true);
    connect(&m_turn, &QTimer::timeout, this, &ItemFolder::takeTurn);
    m_settling.setInterval(settlingPause);
    connect(&m_settling, &QTimer::timeout, this, [this] {
        for (const auto &[name, rest] : m_unsettled)
            enqueue(name);
        if (!m_turn.isActive())
            m_turn.start(0);
    });
}

ItemList ItemFolder::items()
{
    refresh();
    return m_queue.empty() ? m_table.items() : nullptr;
}

const StoredItem *ItemFolder::item(std::int32_t id)
{
    refresh();
    return m_queue.empty() ? m_table.item(id) : nullptr;
}

void ItemFolder::setListener(const ItemTable::Listener &listener)
{
    refresh();
    m_table.setListener(listener);
    planTurns();
}

/// Brings everything up to date.
void ItemFolder::refresh()
{
    if (!m_watch) {
        m_watch = std::make_unique<FolderWatch>(m_path);
        connect(m_watch.get(), &FolderWatch::changed, this, [this] {
            if (m_table.hasListener() && !m_turn.isActive())
                m_turn.start(pauseBeforeReading);
        });
    }
    takeChanges();
    // What links lead to is not watched.
    for (const QByteArray &name : m_links)
        enqueue(name);
    for (const auto &[name, rest] : m_unsettled)
        enqueue(name);
    readQueue([] { return true; });
}

void ItemFolder::takeChanges()
{
    const FolderWatch::Changes changes = m_watch->take();
    for (const QByteArray &name : changes.names) {
        if (name.endsWith(m_kind.ending) && !name.startsWith('.'))
            enqueue(name);
    }
    if (changes.isAll || m_isListingDue)
        listAll();
}

void ItemFolder::listAll()
{
    const auto names = itemFileNames(m_path, m_kind.ending);
    const int error = names ? 0 : errno;
    if (error != 0 && error != ENOENT && error != m_listingError)
        qWarning("%s: %s", qUtf8Printable(onOneLine(QFile::decodeName(m_path))), std::strerror(error));
    m_listingError = error;
    m_isListingDue = error != 0 && error != ENOENT && error != ENOTDIR && error != EACCES;
    if (m_isListingDue)
        return;
    for (const QByteArray &name : names.value_or(std::vector<QByteArray>()))
        enqueue(name);
    // Behind the others: what was renamed is then found under its new name first.
    for (const auto &[name, file] : m_table.files())
        enqueue(name);
}

void ItemFolder::enqueue(const QByteArray &name)
{
    if (m_isQueued.insert(name).second)
        m_queue.push_back(name);
}

void ItemFolder::takeTurn()
{
    takeChanges();
    QElapsedTimer timer;
    timer.start();
    const bool isGoingOn = readQueue([&timer] { return timer.elapsed() < longestTurn; });
    if (isGoingOn && !m_queue.empty())
        m_turn.start(0);
}

/// Reads files as long as @p mayGoOn says. False if their items' identifiers are not to be had.
bool ItemFolder::readQueue(const std::function<bool()> &mayGoOn)
{
    std::vector<FileReading> readings;
    // A file that is gone may be there under the name that comes next.
    const auto endsWithLoss = [&readings] { return !readings.empty() && readings.back().isGone; };
    while (!m_queue.empty() && (mayGoOn() || endsWithLoss())) {
        const QByteArray name = m_queue.front();
        m_queue.pop_front();
        m_isQueued.erase(name);
        if (std::optional<FileReading> reading = look(name))
            readings.push_back(std::move(*reading));
    }
    const bool isDone = readings.empty() || m_table.accept(readings);
    if (!isDone) {
        enqueueAgain(readings);
        m_turn.start(pauseAfterFailure);
    }
    planTurns();
    return isDone;
}

void ItemFolder::enqueueAgain(const std::vector<FileReading> &readings)
{
    for (auto reading = readings.crbegin(); reading != readings.crend(); ++reading) {
        if (m_isQueued.insert(reading->name).second)
            m_queue.push_front(reading->name);
    }
}

/// Sees to it that a listener learns of what is still to come.
void ItemFolder::planTurns()
{
    if (!m_table.hasListener()) {
        m_turn.stop();
        m_settling.stop();
        return;
    }
    if (m_unsettled.empty())
        m_settling.stop();
    else if (!m_settling.isActive())
        m_settling.start();
    if (m_turn.isActive())
        return;
    if (m_watch->hasChanges())
        m_turn.start(pauseBeforeReading);
    else if (!m_queue.empty())
        m_turn.start(pauseAfterFailure);
}

/// Nothing if the file has not changed, or not yet for good.
std::optional<FileReading> ItemFolder::look(const QByteArray &name)
{
    const FileEntry entry = FileEntry::at(m_table.pathOf(name));
    if (entry.isLink)
        m_links.insert(name);
    else
        m_links.erase(name);
    const StoredFile *known = m_table.file(name);
    if (!entry.exists || (known && !known->isDoubtful && known->state == entry.state)) {
        m_unsettled.erase(name);
        return known && !entry.exists ? std::optional(FileReading{name, true, {}}) : std::nullopt;
    }
    if (m_watch->writing(name) == FolderWatch::Writing::GoesOn) {
        if (isYoung(name, entry.state, longestWriting)) {
            setUnsettled(name, entry.state);
            return std::nullopt;
        }
        m_watch->endWriting(name);
    }
    return read(name, entry);
}

std::optional<FileReading> ItemFolder::read(const QByteArray &name, const FileEntry &entry)
{
    const FileContent content = FileContent::read(m_table.pathOf(name));
    if (!content.isSteady) {
        setUnsettled(name, entry.state);
        return std::nullopt;
    }
    StoredFile file;
    if (entry.state)
        file.state = content.state;
    file.problem = content.problem;
    if (content.problem.isEmpty())
        file.digest = QCryptographicHash::hash(content.bytes, QCryptographicHash::Sha1);
    file.isDoubtful = isJustWritten(file.state) || !content.problem.isEmpty();

    const StoredFile *known = m_table.file(name);
    if (known && !file.digest.isEmpty() && known->digest == file.digest) {
        m_table.setState(name, file.state, file.isDoubtful);
        m_unsettled.erase(name);
        return std::nullopt;
    }
    if (content.problem.isEmpty()) {
        const FileItems found = m_kind.reader(content.bytes);
        file.problem = found.problem;
        for (std::size_t i = 0; i < found.items.size(); ++i)
            file.items.push_back({0, found.items[i], m_table.pathOf(name), i, m_kind.order(*found.items[i])});
    }
    if (!content.problem.isEmpty() && !FileEntry::at(m_table.pathOf(name)).exists) {
        enqueue(name); // it went just now
        return std::nullopt;
    }
    if (!isSettled(name, file)) {
        setUnsettled(name, file.state);
        return std::nullopt;
    }
    m_unsettled.erase(name);
    return FileReading{name, false, std::move(file)};
}

/// Whether the file is not one of which perhaps only the beginning is written.
bool ItemFolder::isSettled(const QByteArray &name, const StoredFile &file)
{
    const StoredFile *known = m_table.file(name);
    const bool losesItems = known && !known->items.empty();
    // A problem beside items is one with some of the file only.
    if (!file.items.empty() || (file.problem.isEmpty() && !losesItems))
        return true;
    // A file that is cut to be written anew can be seen empty before that is told.
    const bool isEmpty = file.state && file.state->size == 0;
    const bool hasEnded = !isEmpty && m_watch->writing(name) == FolderWatch::Writing::HasEnded;
    return hasEnded || !isYoung(name, file.state, youth);
}

void ItemFolder::setUnsettled(const QByteArray &name, const std::optional<FileState> &state)
{
    Rest &rest = m_unsettled[name];
    if (rest.since.isValid() && rest.state == state)
        return;
    rest.state = state;
    rest.since.start();
}

/// Whether a file was written less than @p age milliseconds ago, and has not been seen as it is for so long.
/// A file from the future, as another clock would have it, may still be written.
bool ItemFolder::isYoung(const QByteArray &name, const std::optional<FileState> &state, qint64 age) const
{
    const auto rest = m_unsettled.find(name);
    const bool isSeen = rest != m_unsettled.end() && rest->second.state == state;
    return state && std::max(state->age(), isSeen ? rest->second.since.elapsed() : 0) < age;
}

} // namespace platform
