#include "network/kestrawrequest.h"

#include <QtCore/QTextStream>

KestRawRequest::KestRawRequest(const QUrl &url, FetchId fetch, NetworkProcessor &processor)
    : KestNetworkRequest(url, fetch, processor)
{
}

void KestRawRequest::networkFinished()
{
    QByteArray body = takeBody();
    QTextStream stream(&body, QIODevice::ReadWrite); // in the locale's codec, whatever the headers say
    succeed(stream.readAll());
}
