#include "support/xdesktop.h"

namespace {
constexpr int longestStart = 60000; // milliseconds
} // namespace

XDesktop::XDesktop(WindowManager windowManager)
{
    // It has to end even if the test is killed.
    QStringList command{QStringLiteral("--pdeathsig"), QStringLiteral("KILL"),
                        QStringLiteral(SOURCE_DIR "/tests/support/with-desktop")};
    if (windowManager == WindowManager::None)
        command.append(QStringLiteral("--without-window-manager"));
    // Tells its environment, then an empty line, and stays until its input ends.
    command += {QStringLiteral("sh"), QStringLiteral("-c"), QStringLiteral("env -0; echo; read -r end")};
    m_desktop.start(QStringLiteral("setpriv"), command);
    QByteArray told;
    while (!told.endsWith(QByteArrayLiteral("\0\n")) && m_desktop.waitForReadyRead(longestStart))
        told += m_desktop.readAllStandardOutput();
    for (const QByteArray &variable : told.split('\0')) {
        const int separator = variable.indexOf('=');
        if (separator > 0)
            m_environment.insert(QString::fromLocal8Bit(variable.left(separator)),
                                 QString::fromLocal8Bit(variable.mid(separator + 1)));
    }
    if (m_environment.isEmpty())
        m_problem = m_desktop.errorString() + QLatin1Char('\n')
            + QString::fromLocal8Bit(m_desktop.readAllStandardError());
}

XDesktop::~XDesktop()
{
    m_desktop.closeWriteChannel();
    m_desktop.waitForFinished();
}
