#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QTimer>

class QTcpSocket;

/// One client of the sample server: reads its one request, answers it, and closes. Deletes itself when the
/// connection is closed, by whomever.
class SampleConnection : public QObject
{
    Q_OBJECT

public:
    /// Takes ownership of @p socket, which is connected.
    SampleConnection(QTcpSocket &socket, QObject *parent);

private:
    void read();
    void answerRequest(const QByteArray &requestLine);
    void send(const QByteArray &status, const QByteArray &type, const QByteArray &body);

    QTcpSocket &m_socket;
    QByteArray m_request; ///< what has come of it so far
    QTimer m_deadline; ///< for the request to come and the answer to be taken
    bool m_isComplete = false;
};
