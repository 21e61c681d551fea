#pragma once

#include <QtCore/QProcess>

/// An X11 desktop of its own without a screen, with a window manager, during its life; see with-desktop.
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

    /// For programs that shall show their windows there, and have no other desktop's settings.
    QProcessEnvironment environment() const { return m_environment; }

private:
    QProcess m_desktop;
    QProcessEnvironment m_environment;
    QString m_problem;
};
