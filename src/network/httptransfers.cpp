#include "network/httptransfers.h"

#include "network/httpreply.h"

#include <algorithm>

namespace {

constexpr std::size_t mostOfOneServer = 6; // what RFC 7230, section 6.4, calls modest, and browsers do

CURLM *makeMulti()
{
    static const CURLcode initialized = curl_global_init(CURL_GLOBAL_DEFAULT);
    Q_UNUSED(initialized)
    return curl_multi_init();
}

bool removeFrom(std::deque<HttpReply *> &replies, HttpReply &reply)
{
    const auto found = std::find(replies.begin(), replies.end(), &reply);
    if (found == replies.end())
        return false;
    replies.erase(found);
    return true;
}

} // namespace

void HttpTransfers::DeleteLater::operator()(QSocketNotifier *notifier) const
{
    // At once, as the socket may be closed and its number be used again, but not while the notifier tells.
    notifier->setEnabled(false);
    notifier->deleteLater();
}

HttpTransfers::HttpTransfers()
    : m_multi(makeMulti(), curl_multi_cleanup)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, [this] { proceed(CURL_SOCKET_TIMEOUT, 0); });
    curl_multi_setopt(m_multi.get(), CURLMOPT_SOCKETFUNCTION, &HttpTransfers::watchSocket);
    curl_multi_setopt(m_multi.get(), CURLMOPT_SOCKETDATA, this);
    curl_multi_setopt(m_multi.get(), CURLMOPT_TIMERFUNCTION, &HttpTransfers::setTimer);
    curl_multi_setopt(m_multi.get(), CURLMOPT_TIMERDATA, this);
}

HttpTransfers::~HttpTransfers()
{
    // Closing its connections libcurl would tell of their sockets.
    curl_multi_setopt(m_multi.get(), CURLMOPT_SOCKETFUNCTION, nullptr);
    curl_multi_setopt(m_multi.get(), CURLMOPT_TIMERFUNCTION, nullptr);
}

void HttpTransfers::add(HttpReply &reply)
{
    Server &server = m_servers[reply.url().authority()];
    server.waiting.push_back(&reply);
    startNext(server);
}

void HttpTransfers::remove(HttpReply &reply)
{
    const auto found = m_servers.find(reply.url().authority());
    if (found == m_servers.end())
        return;
    Server &server = found->second;
    if (removeFrom(server.running, reply)) {
        curl_multi_remove_handle(m_multi.get(), reply.transfer());
        startNext(server);
    } else {
        removeFrom(server.waiting, reply);
    }
    if (server.running.empty() && server.waiting.empty())
        m_servers.erase(found);
}

void HttpTransfers::startNext(Server &server)
{
    // More waiting transfers than need be would cost libcurl much time, were they added to it.
    while (!server.waiting.empty() && server.running.size() < mostOfOneServer) {
        HttpReply *reply = server.waiting.front();
        server.waiting.pop_front();
        server.running.push_back(reply);
        curl_multi_add_handle(m_multi.get(), reply->transfer());
    }
}

int HttpTransfers::watchSocket(CURL *, curl_socket_t socket, int what, void *transfers, void *)
{
    auto *self = static_cast<HttpTransfers *>(transfers);
    if (what == CURL_POLL_REMOVE) {
        self->m_sockets.erase(socket);
        return 0;
    }
    SocketWatch &watch = self->m_sockets[socket];
    self->watch(watch.readable, socket, QSocketNotifier::Read, what & CURL_POLL_IN);
    self->watch(watch.writable, socket, QSocketNotifier::Write, what & CURL_POLL_OUT);
    return 0;
}

void HttpTransfers::watch(Notifier &notifier, curl_socket_t socket, QSocketNotifier::Type type, bool isWanted)
{
    if (notifier) {
        notifier->setEnabled(isWanted);
    } else if (isWanted) {
        notifier.reset(new QSocketNotifier(socket, type));
        const int event = type == QSocketNotifier::Read ? CURL_CSELECT_IN : CURL_CSELECT_OUT;
        connect(notifier.get(), &QSocketNotifier::activated, this,
                [this, socket, event] { proceed(socket, event); });
    }
}

int HttpTransfers::setTimer(CURLM *, long milliseconds, void *transfers)
{
    QTimer &timer = static_cast<HttpTransfers *>(transfers)->m_timer;
    if (milliseconds < 0)
        timer.stop();
    else
        timer.start(static_cast<int>(milliseconds));
    return 0;
}

void HttpTransfers::proceed(curl_socket_t socket, int events)
{
    int running = 0;
    curl_multi_socket_action(m_multi.get(), socket, events, &running);
    completeTransfers();
}

void HttpTransfers::completeTransfers()
{
    int left = 0;
    while (const CURLMsg *message = curl_multi_info_read(m_multi.get(), &left)) {
        if (message->msg != CURLMSG_DONE)
            continue;
        const CURLcode outcome = message->data.result;
        HttpReply *reply = nullptr;
        curl_easy_getinfo(message->easy_handle, CURLINFO_PRIVATE, &reply);
        remove(*reply);
        reply->complete(outcome);
    }
}
