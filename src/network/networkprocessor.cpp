#include "network/networkprocessor.h"

#include "network/fetchcallbacks.h"
#include "network/kestnetworkrequest.h"
#include "network/networkevents.h"
#include "platform/platform.h"

#include <QtCore/QThread>
#include <QtCore/QUrl>

namespace {

constexpr std::chrono::milliseconds connectionTimeout(25000);

/// Every address is one of HTTP; whatever else it may begin with stands behind "http://" then.
QUrl addressOf(const QString &url)
{
    const QLatin1String scheme("http://");
    return QUrl(url.toLower().startsWith(scheme) ? url : scheme + url);
}

} // namespace

NetworkProcessor::NetworkProcessor(FetchCallbacks &callbacks)
    : m_callbacks(callbacks)
{
}

NetworkProcessor::~NetworkProcessor() = default;

void NetworkProcessor::setManager(QNetworkAccessManager &manager)
{
    m_manager = &manager;
}

void NetworkProcessor::removePending(KestNetworkRequest *request)
{
    m_pending.removeAll(request);
}

void NetworkProcessor::post(FetchOutcome outcome)
{
    m_callbacks.post(std::move(outcome));
}

void NetworkProcessor::customEvent(QEvent *event)
{
    if (event->type() == BeginRequestEvent::eventType)
        beginRequest(static_cast<BeginRequestEvent *>(event)->takeRequest());
    else if (event->type() == ShutdownEvent::eventType)
        shutDown();
}

void NetworkProcessor::beginRequest(const FetchRequest &request)
{
    const QUrl url = addressOf(request.url);
    if (!url.isValid()) {
        post({request.fetch, FetchFailure{QStringLiteral("Invalid Url")}});
        return;
    }
    if (!ensureConnection(url)) {
        post({request.fetch, FetchFailure{QStringLiteral("Could not open data connection.")}});
        return;
    }
    KestNetworkRequest *pending = KestNetworkRequest::create(request.kind, url, request.fetch, *this);
    if (!pending)
        return;
    m_pending.append(pending);
    pending->send(*m_manager);
}

bool NetworkProcessor::ensureConnection(const QUrl &url)
{
    if (m_connection && m_connection->status() == platform::connectionConnected)
        return true;
    m_connection.reset();

    platform::ConnectionManager &connections = platform::current().connections();
    platform::ConnectionRequest request;
    request.parameters = platform::connectionParameterDestination;
    request.flags = platform::connectionFlagHttpProxy;
    request.priority = platform::connectionPriorityUserInteractive;
    request.destination =
        connections.networkFor(url.toString().toStdU16String()).value_or(platform::NetworkId{});
    m_connection = connections.connect(request, connectionTimeout);
    return m_connection != nullptr;
}

void NetworkProcessor::shutDown()
{
    m_connection.reset();
    while (!m_pending.isEmpty())
        m_pending.takeFirst()->abort();
    thread()->exit(0);
}
