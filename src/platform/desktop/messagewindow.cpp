#include "platform/desktop/messagewindow.h"

#include "platform/desktop/devicefolder.h"
#include "platform/desktop/filedescriptor.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QSocketNotifier>
#include <QtCore/QUrl>
#include <QtCore/QtEndian>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace platform {

namespace {

constexpr timeval patience = {0, 200000};
constexpr std::chrono::seconds lockPatience(3);
constexpr std::chrono::milliseconds lockPause(10);

FileDescriptor makeSocket()
{
    return FileDescriptor(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
}

/// A message as it is sent: little-endian, without gaps.
class Datagram
{
public:
    static constexpr std::size_t size = 20;

    static std::array<char, size> pack(const WindowMessage &message)
    {
        std::array<char, size> bytes{};
        qToLittleEndian(message.message, bytes.data());
        qToLittleEndian(message.wParam, bytes.data() + wParamAt);
        qToLittleEndian(message.lParam, bytes.data() + lParamAt);
        return bytes;
    }

    static WindowMessage unpack(const std::array<char, size> &bytes)
    {
        return {qFromLittleEndian<std::uint32_t>(bytes.data()),
                qFromLittleEndian<std::uint64_t>(bytes.data() + wParamAt),
                qFromLittleEndian<std::int64_t>(bytes.data() + lParamAt)};
    }

private:
    static constexpr std::size_t wParamAt = 4;
    static constexpr std::size_t lParamAt = 12;
};

/// The place of a window's socket: a name in the opened folder of message windows.
class Place
{
public:
    Place(const DeviceFolder &device, const QString &title)
        : m_folder(
            open(QFile::encodeName(folderPath(device)).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
        , m_name(fileName(title))
    {
    }

    static QString folderPath(const DeviceFolder &device)
    {
        return device.path() + QLatin1String("/message windows");
    }

    int folder() const { return m_folder.get(); }
    const char *name() const { return m_name.constData(); }

    /// The address for bind() and connect(); nothing if there is no folder or the name is too long. The
    /// device's path may be longer than an address holds, so the way is through the descriptor.
    std::optional<sockaddr_un> address() const
    {
        const QByteArray path = "/proc/self/fd/" + QByteArray::number(folder()) + '/' + m_name;
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        if (!m_folder.isValid() || m_name.isEmpty()
            || static_cast<std::size_t>(path.size()) >= sizeof address.sun_path)
            return std::nullopt;
        std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
        return address;
    }

    /// What stands there, links not followed.
    std::optional<struct stat> entry() const
    {
        struct stat entry = {};
        const bool exists = fstatat(folder(), name(), &entry, AT_SYMLINK_NOFOLLOW) == 0;
        return exists ? std::optional(entry) : std::nullopt;
    }

    void remove() const { unlinkat(folder(), name(), 0); }

private:
    static QByteArray fileName(const QString &title)
    {
        // The encoding leaves points alone.
        if (title == QLatin1String(".") || title == QLatin1String(".."))
            return QByteArray("%2E").repeated(title.size());
        return QUrl::toPercentEncoding(title);
    }

    FileDescriptor m_folder;
    QByteArray m_name;
};

/// Keeps other processes from looking for a window and making it at the same time. Ends when it is destroyed.
/// A process that never gives it back is not waited for.
class Lock
{
public:
    explicit Lock(const Place &place)
        : m_folder(place.folder())
    {
        const QDeadlineTimer deadline(lockPatience);
        while (!tryOnce() && !deadline.hasExpired())
            std::this_thread::sleep_for(lockPause);
    }
    ~Lock()
    {
        if (m_isHeld)
            flock(m_folder, LOCK_UN);
    }
    Q_DISABLE_COPY_MOVE(Lock)

    bool isHeld() const { return m_isHeld; }

private:
    bool tryOnce()
    {
        m_isHeld = flock(m_folder, LOCK_EX | LOCK_NB) == 0;
        return m_isHeld;
    }

    int m_folder;
    bool m_isHeld = false;
};

const sockaddr *generic(const sockaddr_un &address)
{
    return reinterpret_cast<const sockaddr *>(&address);
}

/// 0 if @p socket now sends to the window at that place, else the error. A window whose owner has gone
/// refuses. A link is no window, wherever it leads.
int connectTo(const Place &place, const FileDescriptor &socket)
{
    const std::optional<sockaddr_un> address = place.address();
    const auto entry = address ? place.entry() : std::nullopt;
    if (!entry || !S_ISSOCK(entry->st_mode) || !socket.isValid())
        return ENOENT;
    return connect(socket.get(), generic(*address), sizeof *address) == 0 ? 0 : errno;
}

} // namespace

/// The socket of a window, from its making to its removal.
class MessageWindow::Socket
{
public:
    Socket(const DeviceFolder &device, const QString &title)
        : m_place(device, title)
        , m_socket(makeSocket())
    {
        m_problem = make(device);
    }

    ~Socket()
    {
        if (!m_made)
            return;
        const Lock lock(m_place);
        if (lock.isHeld() && isThere())
            m_place.remove();
    }
    Q_DISABLE_COPY_MOVE(Socket)

    QString problem() const { return m_problem; }
    int descriptor() const { return m_socket.get(); }

    /// Whether the file still stands for this socket.
    bool isThere() const
    {
        const auto entry = m_place.entry();
        return entry && m_made && entry->st_ino == m_made->st_ino && entry->st_dev == m_made->st_dev;
    }

private:
    QString make(const DeviceFolder &device)
    {
        if (m_place.folder() < 0)
            return QStringLiteral("its folder cannot be opened");
        const std::optional<sockaddr_un> address = m_place.address();
        if (!address)
            return QStringLiteral("its title is empty or too long");
        const Lock lock(m_place);
        if (!lock.isHeld())
            return QStringLiteral("another program keeps its folder locked");
        const int answer = connectTo(m_place, makeSocket());
        if (answer == 0)
            return QStringLiteral("another program that is running has it already");
        if (answer == ECONNREFUSED)
            m_place.remove();
        if (bind(m_socket.get(), generic(*address), sizeof *address) != 0)
            return errno == EADDRINUSE ? QLatin1String("something else stands at ")
                    + Place::folderPath(device) + QLatin1Char('/') + QFile::decodeName(m_place.name())
                                       : QString::fromLocal8Bit(std::strerror(errno));
        m_made = m_place.entry();
        return QString();
    }

    const Place m_place;
    const FileDescriptor m_socket;
    std::optional<struct stat> m_made; ///< the file, if it was made
    QString m_problem;
};

MessageWindow::MessageWindow(const DeviceFolder &device, const QString &title, QObject *parent)
    : QObject(parent)
{
    const QString folder = Place::folderPath(device);
    QDir().mkdir(folder);
    m_folder.addPath(folder); // before the socket is made, so that no removal is missed
    auto socket = std::make_unique<Socket>(device, title);
    if (!socket->problem().isEmpty()) {
        m_problem =
            QStringLiteral("the message window \"%1\" cannot be made: %2").arg(title, socket->problem());
        return;
    }
    m_socket = std::move(socket);
    auto *notifier = new QSocketNotifier(m_socket->descriptor(), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &MessageWindow::readMessage);
    connect(&m_folder, &QFileSystemWatcher::directoryChanged, this, &MessageWindow::checkPresence);
}

MessageWindow::~MessageWindow() = default;

QString MessageWindow::problem() const
{
    return m_problem;
}

bool MessageWindow::exists(const DeviceFolder &device, const QString &title)
{
    return connectTo(Place(device, title), makeSocket()) == 0;
}

bool MessageWindow::post(const DeviceFolder &device, const QString &title, const WindowMessage &message)
{
    const FileDescriptor socket = makeSocket();
    if (connectTo(Place(device, title), socket) != 0)
        return false;
    setsockopt(socket.get(), SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
    const auto bytes = Datagram::pack(message);
    return send(socket.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(bytes.size());
}

void MessageWindow::readMessage()
{
    // One at a time: while there are more the notifier calls again, and a flood of them starves nobody.
    std::array<char, Datagram::size> bytes{};
    const ssize_t size = recv(m_socket->descriptor(), bytes.data(), bytes.size(), MSG_DONTWAIT | MSG_TRUNC);
    if (size == static_cast<ssize_t>(bytes.size()))
        emit received(Datagram::unpack(bytes));
}

void MessageWindow::checkPresence()
{
    if (m_socket->isThere())
        return;
    m_folder.disconnect(this);
    emit removed();
}

} // namespace platform
