#include "network/httpmanager.h"

#include "network/httpreply.h"
#include "network/httptransfers.h"

HttpManager::HttpManager()
    : m_transfers(std::make_shared<HttpTransfers>())
{
}

HttpManager::~HttpManager() = default;

QNetworkReply *HttpManager::createRequest(Operation operation, const QNetworkRequest &request,
                                          QIODevice *outgoingData)
{
    if (operation != GetOperation || request.url().scheme() != QLatin1String("http"))
        return QNetworkAccessManager::createRequest(operation, request, outgoingData);
    return new HttpReply(request, m_transfers, *cookieJar(), this);
}
