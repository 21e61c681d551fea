#include "support/xdesktop.h"

namespace {
constexpr int longestStart = 30000; // milliseconds
} // namespace

XDesktop::XDesktop(WindowManager windowManager)
{
    // The server takes the first free number and tells it when it answers.
    const QByteArray number =
        firstLine(m_server, QStringLiteral("Xvfb"),
                  {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                   QStringLiteral("0"), QStringLiteral("1280x1024x24"), QStringLiteral("-nolisten"),
                   QStringLiteral("tcp"), QStringLiteral("-noreset")});
    if (!m_problem.isEmpty())
        return;
    m_display = QLatin1Char(':') + QString::fromLatin1(number);
    if (windowManager == WindowManager::Openbox) {
        firstLine(
            m_windowManager, QStringLiteral("openbox"),
            {QStringLiteral("--sm-disable"), QStringLiteral("--startup"), QStringLiteral("echo ready")});
    }
}

XDesktop::~XDesktop()
{
    for (QProcess *process : {&m_windowManager, &m_server}) {
        process->terminate();
        process->waitForFinished();
    }
}

QProcessEnvironment XDesktop::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
        environment.insert(QLatin1String(name), m_home.path());
    for (const char *name : {"XAUTHORITY", "WAYLAND_DISPLAY", "XDG_CURRENT_DESKTOP", "DESKTOP_SESSION"})
        environment.remove(QLatin1String(name));
    // Left out, libraries would start a bus for the display, which nobody would end.
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("disabled:"));
    environment.insert(QStringLiteral("DISPLAY"), m_display);
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.insert(QStringLiteral("QT_XCB_GL_INTEGRATION"), QStringLiteral("none"));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    // Every X11 program of Qt's reads its keyboard's names in a way that the strict checks take for an
    // overflow.
    const QString sanitizer = environment.value(QStringLiteral("ASAN_OPTIONS"));
    environment.insert(QStringLiteral("ASAN_OPTIONS"), sanitizer + QStringLiteral(":strict_string_checks=0"));
    return environment;
}

QByteArray XDesktop::firstLine(QProcess &process, const QString &program, const QStringList &arguments)
{
    process.setProcessEnvironment(environment());
    // It has to end even if the test is killed.
    process.start(QStringLiteral("setpriv"),
                  QStringList{QStringLiteral("--pdeathsig"), QStringLiteral("KILL"), program} + arguments);
    while (!process.canReadLine() && process.waitForReadyRead(longestStart)) { }
    if (!process.canReadLine())
        m_problem = program + QLatin1String(": ") + process.errorString() + QLatin1Char('\n')
            + QString::fromLocal8Bit(process.readAllStandardError());
    return process.readLine().trimmed();
}
