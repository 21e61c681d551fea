#pragma once

#include "network/fetch.h"

#include <QtCore/QObject>
#include <QtCore/QUrl>
#include <QtNetwork/QNetworkReply>

class NetworkProcessor;
class QNetworkAccessManager;

/// A fetch on its way: the reply that it waits for, and what becomes of the reply's body. Belongs to its
/// processor until it has finished, and then deletes itself and the reply. Network thread only.
class KestNetworkRequest : public QObject
{
    Q_OBJECT

public:
    /// A request of that kind, owned by @p processor, or null if there is no such kind.
    static KestNetworkRequest *create(FetchKind kind, const QUrl &url, FetchId fetch,
                                      NetworkProcessor &processor);

    KestNetworkRequest(const QUrl &url, FetchId fetch, NetworkProcessor &processor);

    /// Sends it. One reply is all that a request can have.
    void send(QNetworkAccessManager &manager);

    /// Gives up waiting; the script is told by the way of any failure.
    void abort();

public slots:
    /// The reply is there, or has failed after networkError(): tells the script what the body says.
    virtual void networkFinished() = 0;

    /// Tells the script that the fetch has failed, and why. networkFinished() follows.
    void networkError(QNetworkReply::NetworkError code);

protected:
    /// The whole body, which is empty after an abort; closes the reply.
    QByteArray takeBody();

    /// Tells the script what the body says, and finishes.
    void succeed(FetchResult result);

private:
    void finish();

    const QUrl m_url;
    const FetchId m_fetch;
    NetworkProcessor &m_processor;
    QNetworkReply *m_reply = nullptr; ///< a child of the manager
};
