#pragma once

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

/// A real web server, nginx, that serves the files of a temporary folder on loopback during its life.
class NginxServer
{
public:
    /// Returns when it answers; if it cannot be started, problem() says why.
    NginxServer();
    ~NginxServer();
    Q_DISABLE_COPY(NginxServer)

    /// Empty if the server runs.
    QString problem() const;

    /// Makes a file to be served.
    void write(const QString &name, const QByteArray &content) const;

    /// Where a file is served, in IPv4: "http://127.0.0.1:PORT/NAME".
    QString url(const QString &name) const;

    /// The same in IPv6: "http://[::1]:PORT/NAME".
    QString urlOnIpv6(const QString &name) const;

private:
    bool start();

    QTemporaryDir m_dir;
    QProcess m_process;
    int m_port = 0;
    QString m_problem;
};
