#include "platform/desktop/registrywatch.h"

#include "platform/desktop/registrystore.h"
#include "platform/desktop/registrywatchers.h"
#include "platform/desktop/sqlitedatabase.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstring>
#include <map>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace platform {

namespace {

// A write to the log may be seen before its change counts, and its process may be killed before it can tell
// that now it does. So the list is looked at again a few times, and then left until something is written.
constexpr int firstPause = 1;
constexpr int longestPause = 64;
constexpr int pauseGrowth = 4;
constexpr int noPause = -1;

// For how long changes may have been read before the others learn of it, while more is written.
constexpr std::chrono::milliseconds longestUntold(200);
constexpr int changesAtOnce = 64;

using Clock = std::chrono::steady_clock;
using Place = std::pair<QByteArray, QByteArray>;

struct Change
{
    qint64 number;
    Place place;
};

} // namespace

/// One listener. Ends itself.
class RegistryWatch::Registration : public RegistryNotification
{
public:
    Registration(RegistryWatch &watch, Place place, RegistryListener listener)
        : m_watch(watch)
        , m_place(std::move(place))
        , m_listener(std::move(listener))
    {
    }

    ~Registration() override { m_watch.remove(*this); }

    const Place &place() const { return m_place; }

    void begin(qint64 latestChange) { m_latestBefore = latestChange; }

    bool wants(qint64 change) const { return change > m_latestBefore; }
    void tell(const std::optional<RegistryBytes> &data) const { m_listener(data); }

private:
    RegistryWatch &m_watch;
    const Place m_place;
    const RegistryListener m_listener;
    qint64 m_latestBefore = 0;
};

/// The watching thread and what it works with, while there is a listener.
class RegistryWatch::Session
{
public:
    explicit Session(const DeviceFolder &device)
        : m_watchers(device.path())
        , m_files(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
        , m_end(eventfd(0, EFD_CLOEXEC))
    {
        m_isWatching = m_files.isValid() && m_end.isValid()
            && m_database.open(device.path() + QLatin1String("/registry.db")) && watchLog()
            && m_database.inTransaction(
                SqliteDatabase::Access::Write,
                [this] { return m_watchers.enter(m_database) && startAtLatestChange(); })
            && startThread();
    }

    ~Session()
    {
        if (!m_isWatching)
            return;
        eventfd_write(m_end.get(), 1);
        m_thread.join();
        m_database.inTransaction(SqliteDatabase::Access::Write, [this] {
            return m_watchers.leave(m_database) && m_watchers.cutChanges(m_database);
        });
    }

    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    bool isWatching() const { return m_isWatching; }

    /// False if the registry cannot tell which changes were before.
    bool add(Registration &registration, RegistryStore &store)
    {
        // Changes that are listed from here on find the listener in its place.
        const std::lock_guard<std::mutex> lock(m_mutex);
        const std::optional<qint64> latest = store.latestChange();
        if (!latest)
            return false;
        registration.begin(*latest);
        m_registrations[registration.place()].push_back(&registration);
        return true;
    }

    void remove(Registration &registration)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto there = m_registrations.find(registration.place());
        if (there == m_registrations.end())
            return;
        auto &here = there->second;
        here.erase(std::remove(here.begin(), here.end(), &registration), here.end());
        if (here.empty())
            m_registrations.erase(there);
    }

    bool isEmpty()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_registrations.empty();
    }

private:
    bool watchLog()
    {
        const QFileInfo file(m_database.file());
        m_logName = QFile::encodeName(file.fileName() + QLatin1String("-wal"));
        return inotify_add_watch(m_files.get(), QFile::encodeName(file.path()).constData(),
                                 IN_MODIFY | IN_ATTRIB)
            >= 0;
    }

    bool startThread()
    {
        try {
            m_thread = std::thread(&Session::watch, this);
            return true;
        } catch (const std::system_error &) { // there are too many
            return false;
        }
    }

    bool startAtLatestChange()
    {
        // This watcher's own position, which is the latest of all.
        SqliteStatement select = m_database.prepare("SELECT max(position) FROM watcher");
        if (!select.next())
            return false;
        m_position = m_toldPosition = select.number(0);
        return true;
    }

    void watch()
    {
        int pause = noPause;
        while (true) {
            std::array<pollfd, 2> events{{{m_end.get(), POLLIN, 0}, {m_files.get(), POLLIN, 0}}};
            poll(events.data(), events.size(), pause);
            if (events[0].revents != 0)
                return;
            if (events[1].revents != 0)
                pause = logWasWritten() ? firstPause : pause;
            else if (pause != noPause)
                pause = pause < longestPause ? pause * pauseGrowth : noPause;
            if (tellChanges())
                pause = firstPause;
            if (m_position > m_toldPosition && (pause == noPause || Clock::now() > m_tellPositionAt))
                tellPosition();
        }
    }

    /// Empties the queue of file events.
    bool logWasWritten()
    {
        constexpr std::size_t roomForEvents = 4096;
        alignas(inotify_event) std::array<char, roomForEvents> buffer;
        bool isWritten = false;
        ssize_t size = 0;
        while ((size = ::read(m_files.get(), buffer.data(), buffer.size())) > 0) {
            for (ssize_t at = 0; at < size;) {
                inotify_event event;
                std::memcpy(&event, buffer.data() + at, sizeof(event));
                const char *name = buffer.data() + at + sizeof(event);
                isWritten =
                    isWritten || (event.mask & IN_Q_OVERFLOW) != 0 || (event.len > 0 && m_logName == name);
                at += static_cast<ssize_t>(sizeof(event) + event.len);
            }
        }
        return isWritten;
    }

    /// Whether there were any.
    bool tellChanges()
    {
        bool wereThere = false;
        for (std::vector<Change> changes = nextChanges(); !changes.empty(); changes = nextChanges()) {
            wereThere = true;
            for (const Change &change : changes)
                tell(change);
        }
        return wereThere;
    }

    // Read first and told then, as an unfinished read would keep the log from being cut.
    std::vector<Change> nextChanges()
    {
        SqliteStatement select = m_database.prepare(
            "SELECT sequence, path, name FROM change WHERE sequence > ? ORDER BY sequence LIMIT ?");
        select << m_position << changesAtOnce;
        std::vector<Change> changes;
        while (select.next())
            changes.push_back({select.number(0), {select.bytes(1), select.bytes(2)}});
        return changes;
    }

    void tell(const Change &change)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_position = change.number;
        const auto there = m_registrations.find(change.place);
        if (there == m_registrations.end())
            return;
        const std::optional<RegistryBytes> data = dataOf(change.number);
        for (const Registration *registration : there->second) {
            if (registration->wants(change.number))
                registration->tell(data);
        }
    }

    std::optional<RegistryBytes> dataOf(qint64 change)
    {
        SqliteStatement select = m_database.prepare("SELECT data FROM change WHERE sequence = ?");
        select << change;
        if (!select.next() || select.isNull(0))
            return std::nullopt;
        const QByteArray data = select.bytes(0);
        return RegistryBytes(data.cbegin(), data.cend());
    }

    void tellPosition()
    {
        if (m_database.inTransaction(SqliteDatabase::Access::Write, [this] {
                return m_watchers.setPosition(m_database, m_position) && m_watchers.cutChanges(m_database);
            }))
            m_toldPosition = m_position;
        m_tellPositionAt = Clock::now() + longestUntold;
    }

    RegistryWatchers m_watchers;
    SqliteDatabase m_database; ///< the thread's alone while it runs
    const FileDescriptor m_files;
    const FileDescriptor m_end;
    QByteArray m_logName;
    bool m_isWatching = false;
    qint64 m_position = 0; ///< number of the last change that was told
    qint64 m_toldPosition = 0; ///< and of the last that the other watchers know of
    Clock::time_point m_tellPositionAt;

    std::mutex m_mutex; ///< held while listeners are called
    std::map<Place, std::vector<Registration *>> m_registrations;
    std::thread m_thread;
};

RegistryWatch::RegistryWatch(const DeviceFolder &device, RegistryStore &store)
    : m_device(device)
    , m_store(store)
{
}

RegistryWatch::~RegistryWatch() = default;

std::unique_ptr<RegistryNotification> RegistryWatch::add(const QByteArray &comparablePath,
                                                         const QByteArray &comparableName,
                                                         RegistryListener listener)
{
    auto registration =
        std::make_unique<Registration>(*this, Place(comparablePath, comparableName), std::move(listener));
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_session)
        m_session = std::make_unique<Session>(m_device);
    if (m_session->isWatching() && m_session->add(*registration, m_store))
        return registration;
    if (m_session->isEmpty())
        m_session.reset();
    return nullptr;
}

void RegistryWatch::remove(Registration &registration)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_session)
        return;
    m_session->remove(registration);
    if (m_session->isEmpty())
        m_session.reset();
}

} // namespace platform
