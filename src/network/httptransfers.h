#pragma once

#include <QtCore/QObject>
#include <QtCore/QSocketNotifier>
#include <QtCore/QString>
#include <QtCore/QTimer>

#include <curl/curl.h>
#include <deque>
#include <map>
#include <memory>
#include <unordered_map>

class HttpReply;

/// Carries out transfers of libcurl's in the event loop of the thread that made it; six at a time for each
/// server, while others wait for their turn.
class HttpTransfers : public QObject
{
    Q_OBJECT

public:
    HttpTransfers();
    ~HttpTransfers() override;

    /// Begins a reply's transfer, now or when its turn comes. Its HttpReply::complete() is called when it has
    /// ended.
    void add(HttpReply &reply);

    /// Ends a reply's transfer, begun or not. Unknown ones are ignored.
    void remove(HttpReply &reply);

private:
    struct DeleteLater
    {
        void operator()(QSocketNotifier *notifier) const;
    };
    using Notifier = std::unique_ptr<QSocketNotifier, DeleteLater>;

    struct SocketWatch
    {
        Notifier readable;
        Notifier writable;
    };

    struct Server
    {
        std::deque<HttpReply *> running;
        std::deque<HttpReply *> waiting;
    };

    static int watchSocket(CURL *transfer, curl_socket_t socket, int what, void *transfers, void *);
    static int setTimer(CURLM *multi, long milliseconds, void *transfers);

    void watch(Notifier &notifier, curl_socket_t socket, QSocketNotifier::Type type, bool isWanted);
    void proceed(curl_socket_t socket, int events);
    void completeTransfers();
    void startNext(Server &server);

    const std::unique_ptr<CURLM, CURLMcode (*)(CURLM *)> m_multi;
    QTimer m_timer;
    std::unordered_map<curl_socket_t, SocketWatch> m_sockets;
    std::map<QString, Server> m_servers; ///< by host and port
};
