#include "sampleserver.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QProcess>

#include <cstdio>
#include <iostream>

namespace {

const char help[] =
    "Usage: holm-sampleserver [--port N]\n"
    "\n"
    "Serves a few sample feeds over HTTP on 127.0.0.1: headlines.xml, weather.xml, greeting.txt.\n"
    "\n"
    "  --port N     serve at this port, 0 being any that is free, until the program is ended\n"
    "  -h, --help   show this\n"
    "\n"
    "It prints its address. Without --port it serves at any free port, and ends when nobody has been\n"
    "connected for 10 seconds. If a widget started it ($HOLM is set), it then writes the address to the\n"
    "handheld's registry, as HKCU\\Software\\Tour\\Address, instead of printing it.\n";

int fail(const QString &problem)
{
    std::cerr << "holm-sampleserver: " << problem.toStdString() << std::endl;
    return 1;
}

bool announce(const QString &holm, const QString &address)
{
    return QProcess::execute(holm,
                             {QStringLiteral("reg"), QStringLiteral("set"),
                              QStringLiteral("HKCU\\Software\\Tour\\Address"), address})
        == 0;
}

/// Whoever reads from a widget until it ends, through a pipe, need not wait for this program, too.
void leaveTerminal()
{
    std::freopen("/dev/null", "r", stdin);
    std::freopen("/dev/null", "w", stdout);
    std::freopen("/dev/null", "w", stderr);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments == QStringList{QStringLiteral("--help")}
        || arguments == QStringList{QStringLiteral("-h")}) {
        std::cout << help;
        return 0;
    }
    const bool hasPort = arguments.size() == 2 && arguments.first() == QLatin1String("--port");
    bool isNumber = true;
    const quint16 port = hasPort ? arguments.last().toUShort(&isNumber) : 0;
    if (!isNumber || (!hasPort && !arguments.isEmpty())) {
        std::cerr << "holm-sampleserver: wrong arguments; see holm-sampleserver --help" << std::endl;
        return 2;
    }

    SampleServer server;
    if (!server.listen(port))
        return fail(server.problem());
    const QString holm = qEnvironmentVariable("HOLM");
    if (hasPort || holm.isEmpty())
        std::cout << server.address().toStdString() << std::endl;
    else if (announce(holm, server.address()))
        leaveTerminal();
    else
        return fail(holm + QLatin1String(" could not write the address to the registry"));
    if (!hasPort) {
        QObject::connect(&server, &SampleServer::deserted, &application, &QCoreApplication::quit);
        server.watchForDesertion();
    }
    return QCoreApplication::exec();
}
