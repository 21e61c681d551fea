#include "nginxserver.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QThread>
#include <QtNetwork/QTcpServer>

#include <fstream>
#include <unistd.h>

namespace {

// Another program may take the port before nginx does.
constexpr int attempts = 5;
constexpr int longestStart = 20000; // milliseconds

const char configuration[] = R"(
daemon off;
master_process off;
pid nginx.pid;
error_log stderr crit;
%USER%
events { worker_connections 1024; }
http {
    access_log off;
    default_type text/plain;
    server_tokens off;
    sendfile on;
    keepalive_requests 100000;
    client_body_temp_path body;
    proxy_temp_path proxy;
    fastcgi_temp_path fastcgi;
    uwsgi_temp_path uwsgi;
    scgi_temp_path scgi;
    server {
        %LISTEN%
        root files;
        location /gzip/ {
            gzip on;
            gzip_types *;
            gzip_min_length 1;
        }
    }
})";

QString program()
{
    const QString unpacked = QStringLiteral(SOURCE_DIR "/build/nginx/usr/sbin/nginx");
    return QFileInfo(unpacked).isExecutable() ? unpacked : QStringLiteral("/usr/sbin/nginx");
}

int freePort()
{
    QTcpServer server;
    return server.listen(QHostAddress::LocalHost) ? server.serverPort() : 0;
}

QByteArray configurationFor(int port)
{
    const QByteArray number = QByteArray::number(port);
    QByteArray listen = "listen 127.0.0.1:" + number + ';';
    // Machines without IPv6 are good enough for all but urlOnIpv6().
    if (QTcpServer().listen(QHostAddress::LocalHostIPv6))
        listen += "listen [::1]:" + number + ';';
    return QByteArray(configuration)
        .replace("%USER%", getuid() == 0 ? "user root;" : "")
        .replace("%LISTEN%", listen);
}

} // namespace

NginxServer::NginxServer()
{
    QDir(m_dir.path()).mkpath(QStringLiteral("files/gzip"));
    for (int i = 0; i < attempts && !start(); ++i) { }
}

NginxServer::~NginxServer()
{
    m_process.terminate();
    m_process.waitForFinished();
}

QString NginxServer::problem() const
{
    return m_problem;
}

void NginxServer::write(const QString &name, const QByteArray &content) const
{
    // Addresses have names in UTF-8, whatever encoding the locale has for those of files.
    const std::string path = m_dir.filePath(QLatin1String("files/") + name).toStdString();
    std::ofstream(path, std::ios::binary).write(content.constData(), content.size());
}

QString NginxServer::url(const QString &name) const
{
    return QStringLiteral("http://127.0.0.1:%1/%2").arg(QString::number(m_port), name);
}

QString NginxServer::urlOnIpv6(const QString &name) const
{
    return QStringLiteral("http://[::1]:%1/%2").arg(QString::number(m_port), name);
}

bool NginxServer::start()
{
    m_port = freePort();
    const QString configurationFile = m_dir.filePath(QStringLiteral("nginx.conf"));
    QFile file(configurationFile);
    if (!file.open(QIODevice::WriteOnly) || file.write(configurationFor(m_port)) < 0 || !file.flush()) {
        m_problem = file.errorString();
        return false;
    }
    if (!QFileInfo(program()).isExecutable()) {
        m_problem = QStringLiteral("There is no nginx; run ./test once, which unpacks it.");
        return false;
    }
    // It has to end even if the test is killed.
    m_process.start(QStringLiteral("setpriv"),
                    {QStringLiteral("--pdeathsig"), QStringLiteral("KILL"), program(), QStringLiteral("-e"),
                     QStringLiteral("stderr"), QStringLiteral("-p"), m_dir.path(), QStringLiteral("-c"),
                     configurationFile});
    if (!m_process.waitForStarted()) {
        m_problem = m_process.errorString();
        return false;
    }
    // The file is made when the ports are open.
    QElapsedTimer waited;
    waited.start();
    while (!QFile::exists(m_dir.filePath(QStringLiteral("nginx.pid")))) {
        if (m_process.waitForFinished(5) || waited.elapsed() > longestStart) {
            m_problem =
                program() + QLatin1String(": ") + QString::fromLocal8Bit(m_process.readAllStandardError());
            return false;
        }
    }
    m_problem.clear();
    return true;
}
