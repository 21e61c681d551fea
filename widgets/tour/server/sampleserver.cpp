#include "sampleserver.h"

#include "sampleconnection.h"

#include <QtNetwork/QTcpSocket>

namespace {
constexpr int mostConnections = 100;
constexpr int desertedAfter = 10000; // milliseconds
} // namespace

bool SampleServer::listen(quint16 port)
{
    m_desertion.setSingleShot(true);
    connect(&m_desertion, &QTimer::timeout, this, &SampleServer::deserted);
    connect(&m_server, &QTcpServer::newConnection, this, &SampleServer::acceptConnections);
    return m_server.listen(QHostAddress::LocalHost, port);
}

QString SampleServer::problem() const
{
    return m_server.errorString();
}

QString SampleServer::address() const
{
    return QStringLiteral("http://127.0.0.1:%1/").arg(m_server.serverPort());
}

void SampleServer::watchForDesertion()
{
    m_watchesForDesertion = true;
    if (m_connections == 0)
        m_desertion.start(desertedAfter);
}

void SampleServer::acceptConnections()
{
    while (QTcpSocket *socket = m_server.nextPendingConnection()) {
        if (m_connections == mostConnections) {
            socket->abort();
            socket->deleteLater();
            continue;
        }
        ++m_connections;
        m_desertion.stop();
        connect(new SampleConnection(*socket, this), &QObject::destroyed, this,
                &SampleServer::forgetConnection);
    }
}

void SampleServer::forgetConnection()
{
    if (--m_connections == 0 && m_watchesForDesertion)
        m_desertion.start(desertedAfter);
}
