#include "platform/desktop/outlook/folderwatch.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstring>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr std::chrono::seconds retryPause(1);
constexpr std::size_t mostNames = 100000;
constexpr std::uint32_t entryEvents = IN_CREATE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE;
constexpr std::uint32_t folderEvents =
    entryEvents | IN_ATTRIB | IN_MODIFY | IN_CLOSE_WRITE | IN_DELETE_SELF | IN_MOVE_SELF;
constexpr std::uint32_t lossEvents = IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT | IN_IGNORED;

std::optional<std::pair<dev_t, ino_t>> identityOf(const QByteArray &folder)
{
    struct stat entry = {};
    if (stat(folder.constData(), &entry) != 0)
        return std::nullopt;
    return std::pair(entry.st_dev, entry.st_ino);
}

} // namespace

FolderWatch::FolderWatch(const QByteArray &folder, QObject *parent)
    : QObject(parent)
    , m_folder(folder)
    , m_parent(folder.left(std::max(folder.lastIndexOf('/'), 1)))
    , m_name(folder.mid(folder.lastIndexOf('/') + 1))
    , m_events(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    if (m_events.isValid()) {
        m_notifier.emplace(m_events.get(), QSocketNotifier::Read);
        connect(&*m_notifier, &QSocketNotifier::activated, this, &FolderWatch::tell);
    }
    m_retry.setInterval(retryPause);
    connect(&m_retry, &QTimer::timeout, this, &FolderWatch::tell);
    watchFolder();
}

FolderWatch::Changes FolderWatch::take()
{
    drain();
    checkFolder();
    Changes changes = std::exchange(m_changes, {});
    changes.isAll = changes.isAll || !isWatching();
    return changes;
}

FolderWatch::Writing FolderWatch::writing(const QByteArray &name)
{
    drain();
    const auto found = m_writing.find(name);
    return found != m_writing.end() ? found->second : Writing::Unknown;
}

void FolderWatch::endWriting(const QByteArray &name)
{
    m_writing[name] = Writing::HasEnded;
}

void FolderWatch::tell()
{
    drain();
    if (m_isFolderDoubtful || !isWatching())
        checkFolder();
    if (hasChanges() || !isWatching())
        emit changed();
}

void FolderWatch::drain()
{
    constexpr std::size_t roomForEvents = 65536;
    alignas(inotify_event) std::array<char, roomForEvents> buffer;
    ssize_t size = 0;
    while ((size = ::read(m_events.get(), buffer.data(), buffer.size())) > 0) {
        for (ssize_t at = 0; at < size;) {
            inotify_event event;
            std::memcpy(&event, buffer.data() + at, sizeof event);
            // The name is filled up with nulls.
            const QByteArray name(event.len > 0 ? buffer.data() + at + sizeof event : "");
            note(event, name);
            at += static_cast<ssize_t>(sizeof event + event.len);
        }
    }
}

void FolderWatch::note(const inotify_event &event, const QByteArray &name)
{
    if ((event.mask & IN_Q_OVERFLOW) != 0) {
        m_isFolderDoubtful = true; // and with it all that is in it
        m_writing.clear();
        return;
    }
    if (event.wd == m_parentWatch && name == m_name)
        m_isFolderDoubtful = true;
    if (event.wd == m_parentWatch && (event.mask & IN_IGNORED) != 0)
        m_parentWatch = -1;
    if (event.wd != m_folderWatch)
        return;
    if ((event.mask & lossEvents) != 0) {
        m_isFolderDoubtful = true;
        if ((event.mask & IN_IGNORED) != 0)
            m_folderWatch = -1;
        return;
    }
    if ((event.mask & IN_MODIFY) != 0)
        m_writing[name] = Writing::GoesOn;
    else if ((event.mask & (IN_CLOSE_WRITE | IN_MOVED_TO)) != 0)
        m_writing[name] = Writing::HasEnded;
    else if ((event.mask & IN_ATTRIB) == 0)
        m_writing.erase(name);
    if (m_changes.names.size() >= mostNames)
        m_changes = {true, {}};
    if (m_changes.names.empty() || m_changes.names.back() != name)
        m_changes.names.push_back(name);
}

/// Sees to it that the folder that is watched is the one that is there.
void FolderWatch::checkFolder()
{
    if (m_isFolderDoubtful || !isWatching() || identityOf(m_folder) != m_watched)
        watchFolder();
}

void FolderWatch::watchFolder()
{
    if (m_folderWatch >= 0)
        inotify_rm_watch(m_events.get(), m_folderWatch);
    // First, so that a folder that is put into the place of this one is not missed.
    const int parentBefore = std::exchange(
        m_parentWatch, inotify_add_watch(m_events.get(), m_parent.constData(), entryEvents | IN_ONLYDIR));
    if (parentBefore >= 0 && parentBefore != m_parentWatch)
        inotify_rm_watch(m_events.get(), parentBefore);
    m_folderWatch = inotify_add_watch(m_events.get(), m_folder.constData(), folderEvents | IN_ONLYDIR);
    m_watched = identityOf(m_folder).value_or(std::pair<dev_t, ino_t>());
    m_isFolderDoubtful = false;
    m_writing.clear();
    m_changes.isAll = true;
    if (isWatching())
        m_retry.stop();
    else if (!m_retry.isActive())
        m_retry.start();
}

} // namespace platform
