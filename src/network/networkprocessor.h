#pragma once

#include "network/fetch.h"
#include "platform/connectionmanager.h"

#include <QtCore/QList>
#include <QtCore/QObject>

#include <memory>

class FetchCallbacks;
class KestNetworkRequest;
class QNetworkAccessManager;
class QUrl;

/// Opens the data connection and carries out the requests that the network thread is asked for by events.
/// Lives on that thread.
class NetworkProcessor : public QObject
{
    Q_OBJECT

public:
    /// @p callbacks have to outlive the processor.
    explicit NetworkProcessor(FetchCallbacks &callbacks);
    ~NetworkProcessor() override;

    /// What sends the requests; to be set before the first of them. It has to live as long as events come.
    void setManager(QNetworkAccessManager &manager);

    /// Forgets a request that has got its reply.
    void removePending(KestNetworkRequest *request);

    void post(FetchOutcome outcome);

protected:
    void customEvent(QEvent *event) override;

private:
    void beginRequest(const FetchRequest &request);
    bool ensureConnection(const QUrl &url);
    void shutDown();

    QList<KestNetworkRequest *> m_pending; ///< children that wait for their replies, in order of creation
    std::unique_ptr<platform::DataConnection> m_connection; ///< null: none is held
    QNetworkAccessManager *m_manager = nullptr;
    FetchCallbacks &m_callbacks;
};
