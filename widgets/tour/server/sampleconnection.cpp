#include "sampleconnection.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtNetwork/QTcpSocket>

#include <algorithm>
#include <iterator>

namespace {

constexpr int longestRequest = 8192;
constexpr int longestWait = 10000; // milliseconds

struct Document
{
    const char *path;
    const char *file;
    const char *type;
};

const Document documents[] = {
    {"/headlines.xml", ":/feeds/headlines.xml", "application/xml"},
    {"/weather.xml", ":/feeds/weather.xml", "application/xml"},
    {"/greeting.txt", ":/feeds/greeting.txt", "text/plain; charset=utf-8"},
};

} // namespace

SampleConnection::SampleConnection(QTcpSocket &socket, QObject *parent)
    : QObject(parent)
    , m_socket(socket)
{
    m_socket.setParent(this);
    m_socket.setReadBufferSize(longestRequest);
    connect(&m_socket, &QTcpSocket::readyRead, this, &SampleConnection::read);
    connect(&m_socket, &QTcpSocket::disconnected, this, &QObject::deleteLater);
    connect(&m_deadline, &QTimer::timeout, &m_socket, &QTcpSocket::abort);
    m_deadline.start(longestWait);
}

void SampleConnection::read()
{
    // Read in any case: of a socket with a full buffer nobody would notice the end.
    const QByteArray piece = m_socket.readAll();
    if (m_isComplete)
        return;
    m_request += piece;
    m_isComplete = m_request.contains("\r\n\r\n") || m_request.size() > longestRequest;
    if (m_isComplete)
        answerRequest(m_request.left(m_request.indexOf("\r\n")));
}

void SampleConnection::answerRequest(const QByteArray &requestLine)
{
    static const QRegularExpression form(QStringLiteral("^([A-Z]+) (/[^ ?]*)(\\?[^ ]*)? HTTP/1\\.[01]$"));
    const QRegularExpressionMatch match = form.match(QString::fromLatin1(requestLine));
    if (!match.hasMatch() || m_request.size() > longestRequest) {
        send("400 Bad Request", "text/plain", "This is no request, or too long a one.");
        return;
    }
    if (match.captured(1) != QLatin1String("GET")) {
        send("405 Method Not Allowed\r\nAllow: GET", "text/plain", "There is only GET here.");
        return;
    }
    const QString path = match.captured(2);
    if (path == QLatin1String("/stay")) {
        m_deadline.stop();
        return;
    }
    const auto document =
        std::find_if(std::begin(documents), std::end(documents),
                     [&](const Document &candidate) { return path == QLatin1String(candidate.path); });
    if (document == std::end(documents)) {
        send("404 Not Found", "text/plain", "There is nothing of that name.");
        return;
    }
    QFile file(QLatin1String(document->file));
    file.open(QIODevice::ReadOnly); // it is compiled in
    send("200 OK", document->type, file.readAll());
}

void SampleConnection::send(const QByteArray &status, const QByteArray &type, const QByteArray &body)
{
    m_socket.write("HTTP/1.1 " + status + "\r\nContent-Type: " + type + "\r\nContent-Length: "
                   + QByteArray::number(body.size()) + "\r\nConnection: close\r\n\r\n" + body);
    m_socket.disconnectFromHost();
}
