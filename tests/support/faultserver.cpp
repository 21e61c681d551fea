#include "faultserver.h"

#include <algorithm>
#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int pollInterval = 20; // milliseconds, after which an end is noticed and Trickle goes on
const std::string endOfHeader = "\r\n\r\n";

bool staysOpen(Ending ending)
{
    return ending != Ending::Close && ending != Ending::Reset;
}

void close(int socket, Ending ending)
{
    // An end without lingering is a reset.
    const linger atOnce = {1, 0};
    if (ending == Ending::Reset)
        setsockopt(socket, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    ::close(socket);
}

} // namespace

FaultServer::FaultServer()
    : m_listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto *generic = reinterpret_cast<sockaddr *>(&address);
    socklen_t size = sizeof address;
    if (bind(m_listener, generic, size) != 0 || listen(m_listener, SOMAXCONN) != 0
        || getsockname(m_listener, generic, &size) != 0)
        qFatal("No port to serve on");
    m_port = ntohs(address.sin_port);
    m_thread = std::thread(&FaultServer::serve, this);
}

FaultServer::~FaultServer()
{
    m_ended = true;
    m_thread.join();
    ::close(m_listener);
}

void FaultServer::answer(const std::string &path, const std::string &bytes, Ending ending,
                         const std::string &repeated)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_answers[path] = {bytes, ending, repeated};
}

QString FaultServer::url(const QString &path) const
{
    return QStringLiteral("http://127.0.0.1:%1%2").arg(QString::number(m_port), path);
}

QStringList FaultServer::requests() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_requests;
}

void FaultServer::serve()
{
    std::vector<Connection> connections;
    while (!m_ended) {
        std::vector<pollfd> polled = {{m_listener, POLLIN, 0}};
        for (const Connection &connection : connections) {
            const bool sends = !connection.unsent.empty();
            polled.push_back({connection.socket, static_cast<short>(sends ? POLLIN | POLLOUT : POLLIN), 0});
        }
        const bool quiet = poll(polled.data(), polled.size(), pollInterval) == 0;

        for (std::size_t i = 0; i < connections.size(); ++i) {
            Connection &connection = connections[i];
            const short events = polled[i + 1].revents;
            if ((events & ~POLLOUT && !receive(connection)) || (events & POLLOUT && !send(connection))) {
                close(connection.socket, connection.answer.ending);
                connection.socket = -1;
            } else if (quiet && connection.answer.ending == Ending::Trickle) {
                connection.unsent = connection.answer.repeated;
            }
        }
        connections.erase(std::remove_if(connections.begin(), connections.end(),
                                         [](const Connection &c) { return c.socket < 0; }),
                          connections.end());
        if (polled.front().revents & POLLIN)
            connections.push_back(
                {accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK), {}, {}, {}});
    }
    for (const Connection &connection : connections)
        ::close(connection.socket);
}

/// False if the connection is to be closed.
bool FaultServer::receive(Connection &connection)
{
    char buffer[4096];
    const ssize_t count = recv(connection.socket, buffer, sizeof buffer, 0);
    if (count <= 0)
        return false;
    connection.received.append(buffer, static_cast<std::size_t>(count));
    const std::size_t end = connection.received.find(endOfHeader);
    if (end == std::string::npos)
        return true;

    const std::string request = connection.received.substr(0, end);
    connection.received.erase(0, end + endOfHeader.size());
    const std::size_t path = request.find(' ') + 1;
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_requests.append(QString::fromStdString(request));
    const auto known = m_answers.find(request.substr(path, request.find(' ', path) - path));
    connection.answer = known == m_answers.end() ? Answer() : known->second;
    connection.unsent = connection.answer.bytes;
    return !connection.unsent.empty() || staysOpen(connection.answer.ending);
}

/// False if the connection is to be closed.
bool FaultServer::send(Connection &connection) const
{
    const ssize_t count =
        ::send(connection.socket, connection.unsent.data(), connection.unsent.size(), MSG_NOSIGNAL);
    if (count < 0)
        return false;
    connection.unsent.erase(0, static_cast<std::size_t>(count));
    if (connection.unsent.empty() && connection.answer.ending == Ending::Repeat)
        connection.unsent = connection.answer.repeated;
    return !connection.unsent.empty() || staysOpen(connection.answer.ending);
}
