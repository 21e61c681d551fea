#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <atomic>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

/// What a FaultServer does after an answer's bytes.
enum class Ending {
    Close,
    Reset,
    KeepOpen, ///< nothing, until the next request
    Repeat, ///< sends the bytes to be repeated, until the other side goes away
    Trickle, ///< the same, but not faster than anybody can read
};

/// A web server on loopback for what real ones do not do: it sends whatever bytes it is told to. Any thread.
class FaultServer
{
public:
    FaultServer();

    /// Ends at once, whatever it was sending.
    ~FaultServer();
    Q_DISABLE_COPY(FaultServer)

    /// Has requests for @p path answered by @p bytes, which begin with the status line. Requests for unknown
    /// paths are not answered at all.
    void answer(const std::string &path, const std::string &bytes, Ending ending = Ending::Close,
                const std::string &repeated = {});

    /// "http://127.0.0.1:PORT" and the path.
    QString url(const QString &path = {}) const;

    /// What was asked so far: request lines and headers.
    QStringList requests() const;

private:
    struct Answer
    {
        std::string bytes;
        Ending ending = Ending::KeepOpen;
        std::string repeated;
    };

    struct Connection
    {
        int socket;
        std::string received;
        std::string unsent;
        Answer answer;
    };

    void serve();
    bool receive(Connection &connection);
    bool send(Connection &connection) const;

    int m_listener;
    int m_port = 0;
    std::atomic<bool> m_ended = false;
    mutable std::mutex m_mutex; ///< guards answers and requests
    std::map<std::string, Answer> m_answers;
    QStringList m_requests;
    std::thread m_thread;
};
