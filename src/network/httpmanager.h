#pragma once

#include <QtNetwork/QNetworkAccessManager>

#include <memory>

class HttpTransfers;

/// A QNetworkAccessManager that has its GETs over plain HTTP done by libcurl, which takes half the time that
/// Qt's own client does for small ones, and lets no server make it use unbounded memory. Belongs to the
/// thread that makes it.
class HttpManager : public QNetworkAccessManager
{
    Q_OBJECT

public:
    HttpManager();
    ~HttpManager() override;

protected:
    QNetworkReply *createRequest(Operation operation, const QNetworkRequest &request,
                                 QIODevice *outgoingData) override;

private:
    const std::shared_ptr<HttpTransfers> m_transfers;
};
