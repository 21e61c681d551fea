#pragma once

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

/// An X11 desktop of its own without a screen, with a window manager, during its life.
class XDesktop
{
public:
    enum class WindowManager { Openbox, None };

    /// Returns when it is ready; if it cannot be started, problem() says why.
    explicit XDesktop(WindowManager windowManager = WindowManager::Openbox);
    ~XDesktop();
    Q_DISABLE_COPY(XDesktop)

    /// Empty if the desktop runs.
    QString problem() const { return m_problem; }

    /// What programs find it by: ":NUMBER".
    QString display() const { return m_display; }

    /// For programs that shall show their windows there, and have no other desktop's settings.
    QProcessEnvironment environment() const;

private:
    /// The first line that the process puts out; empty if it ends without one.
    QByteArray firstLine(QProcess &process, const QString &program, const QStringList &arguments);

    QTemporaryDir m_home;
    QString m_display;
    QString m_problem;
    QProcess m_server;
    QProcess m_windowManager;
};
