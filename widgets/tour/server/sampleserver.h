#pragma once

#include <QtCore/QTimer>
#include <QtNetwork/QTcpServer>

/// Serves the sample feeds over HTTP on 127.0.0.1, to at most 100 clients at a time: GET of
/// "/headlines.xml", "/weather.xml" and "/greeting.txt". GET of "/stay" is never answered.
class SampleServer : public QObject
{
    Q_OBJECT

public:
    /// Begins to serve at @p port, 0 being any that is free. False if it cannot; see problem().
    bool listen(quint16 port);

    QString problem() const;

    /// Where it serves, such as "http://127.0.0.1:8642/".
    QString address() const;

    /// Has deserted() emitted as soon as no connection has been open for 10 seconds, counted from now on.
    void watchForDesertion();

signals:
    void deserted();

private:
    void acceptConnections();
    void forgetConnection();

    QTcpServer m_server;
    QTimer m_desertion;
    int m_connections = 0;
    bool m_watchesForDesertion = false;
};
