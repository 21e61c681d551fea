#pragma once

#include "runoptions.h"
#include "scripttimers.h"
#include "signalgate.h"

#include <QtCore/QObject>

#include <memory>

class Application;
class QScriptContext;
class QScriptEngine;
class QScriptEngineDebugger;
class QWidget;
class Robot;

/// One run of one widget: its window, its script with the globals it sees, and its end.
///
/// The run ends when the script calls quit(), an exception leaves the main script, the window is
/// closed, the time is over or a signal arrives; without a window also when nothing is going on
/// any more, that is no timer is set, no event subscribed and no answer to come.
class WidgetRun : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the run. @p robot may be null.
    WidgetRun(Application &application, const RunOptions &options, Robot *robot);
    ~WidgetRun() override;

    /// Makes the window, if the widget has a face. Returns an empty text or what is wrong.
    QString loadForm();

    /// The window, or null.
    const QWidget *window() const;

    /// Loads the robot, runs the script, then the event loop until the end. Returns holm's exit status.
    int execute();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void publishGlobals();
    void publishWindow();
    void attachDebugger();
    void start();
    void endIfNothingIsGoingOn();
    void end(int status);
    bool saveScreenshot() const;

    static QScriptValue include(QScriptContext *context, QScriptEngine *engine, void *run);
    static QScriptValue quit(QScriptContext *context, QScriptEngine *engine, void *run);
    static QScriptValue noWindow(QScriptContext *context, QScriptEngine *engine, void *run);

    Application &m_application;
    const RunOptions &m_options;
    Robot *const m_robot;
    ScriptTimers m_timers;
    SignalGate m_signals;
    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<QScriptEngineDebugger> m_debugger;
    bool m_started = false;
    int m_status = 0;
};
