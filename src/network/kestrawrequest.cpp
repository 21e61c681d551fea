#include "network/kestrawrequest.h"

#include <QtCore/QTextStream>

void KestRawRequest::networkFinished()
{
    QByteArray body = takeBody();
    QTextStream stream(&body, QIODevice::ReadWrite); // in the locale's codec, whatever the headers say
    succeed(stream.readAll());
}
