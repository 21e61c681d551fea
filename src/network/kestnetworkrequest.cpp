#include "network/kestnetworkrequest.h"

#include "network/kestrawrequest.h"
#include "network/kestrssrequest.h"
#include "network/kestweatherrequest.h"
#include "network/networkprocessor.h"

#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkRequest>

KestNetworkRequest *KestNetworkRequest::create(FetchKind kind, const QUrl &url, FetchId fetch,
                                               NetworkProcessor &processor)
{
    switch (kind) {
    case FetchKind::RawText:
        return new KestRawRequest(url, fetch, processor);
    case FetchKind::Rss:
        return new KestRSSRequest(url, fetch, processor);
    case FetchKind::Weather:
        return new KestWeatherRequest(url, fetch, processor);
    }
    return nullptr;
}

KestNetworkRequest::KestNetworkRequest(const QUrl &url, FetchId fetch, NetworkProcessor &processor)
    : QObject(&processor)
    , m_url(url)
    , m_fetch(fetch)
    , m_processor(processor)
{
}

void KestNetworkRequest::send(QNetworkAccessManager &manager)
{
    m_reply = manager.get(QNetworkRequest(m_url));
    connect(m_reply, &QNetworkReply::finished, this, &KestNetworkRequest::networkFinished);
    connect(m_reply, QOverload<QNetworkReply::NetworkError>::of(&QNetworkReply::error), this,
            &KestNetworkRequest::networkError);
}

void KestNetworkRequest::abort()
{
    m_reply->abort();
}

void KestNetworkRequest::networkError(QNetworkReply::NetworkError)
{
    m_processor.post({m_fetch, FetchFailure{m_reply->errorString()}, false});
    finish();
}

QByteArray KestNetworkRequest::takeBody()
{
    QByteArray body = m_reply->isOpen() ? m_reply->readAll() : QByteArray();
    m_reply->close();
    return body;
}

void KestNetworkRequest::succeed(FetchResult result)
{
    m_processor.post({m_fetch, std::move(result)});
    finish();
}

void KestNetworkRequest::finish()
{
    m_processor.removePending(this);
    m_reply->deleteLater();
    deleteLater();
}
