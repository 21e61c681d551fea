#include "widgetrun.h"

#include "application.h"
#include "exitstatus.h"
#include "robot.h"
#include "scriptglobals.h"
#include "unixsignals.h"
#include "watchdog.h"
#include "widgetform.h"

#include <QtCore/QDir>
#include <QtCore/QEvent>
#include <QtCore/QFileInfo>
#include <QtScript/QScriptContextInfo>
#include <QtScriptTools/QScriptEngineDebugger>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QWidget>

#include <iostream>
#include <optional>

namespace {
constexpr QSize debuggerSize(900, 640);
}

WidgetRun::WidgetRun(Application &application, const RunOptions &options, Robot *robot)
    : m_application(application)
    , m_options(options)
    , m_robot(robot)
    , m_timers(application.engine(), application.calls())
    , m_signals(application)
{
    connect(&application.engine(), &ScriptEngine::quitRequested, this, &WidgetRun::end);
    connect(&application.calls(), &CallQueue::idle, this, &WidgetRun::endIfNothingIsGoingOn);
}

WidgetRun::~WidgetRun() = default;

QString WidgetRun::loadForm()
{
    if (m_options.form.isEmpty())
        return QString();
    WidgetForm form = loadWidgetForm(m_options.form);
    m_window = std::move(form.window);
    if (!m_window)
        return form.error;
    if (m_window->windowTitle().isEmpty())
        m_window->setWindowTitle(QFileInfo(m_options.script).absoluteDir().dirName());
    if (m_options.vga)
        m_window->resize(m_window->size() * 2);
    // Whoever answers dialogs is not to take the widget for one.
    m_window->setWindowModality(Qt::NonModal);
    m_window->installEventFilter(this);
    if (const auto *dialog = qobject_cast<QDialog *>(m_window.get()))
        connect(dialog, &QDialog::finished, this, [this] { m_application.engine().stop(ExitStatus::ok); });
    return QString();
}

const QWidget *WidgetRun::window() const
{
    return m_window.get();
}

int WidgetRun::execute()
{
    publishGlobals();
    m_timers.publish();
    m_signals.install();
    if (m_options.debug)
        attachDebugger();

    UnixSignals signalsOfUnix;
    connect(&signalsOfUnix, &UnixSignals::received, this,
            [this](int number) { m_application.engine().stop(ExitStatus::signalBase + number); });
    std::optional<Watchdog> watchdog;
    if (m_options.timeout.count() > 0) {
        watchdog.emplace(m_options.timeout);
        connect(&*watchdog, &Watchdog::expired, this, [this] {
            std::cerr << "holm: the time is over" << std::endl;
            m_application.engine().stop(ExitStatus::timedOut);
        });
    }

    QMetaObject::invokeMethod(this, &WidgetRun::start, Qt::QueuedConnection);
    QApplication::exec();

    m_application.calls().close();
    if (!m_options.screenshot.isEmpty() && !saveScreenshot() && m_status == ExitStatus::ok)
        return ExitStatus::cannotStart;
    return m_status;
}

bool WidgetRun::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window.get() && (event->type() == QEvent::Close || event->type() == QEvent::Hide)) {
        // A script may hide its window and go on; whoever closes it, the run ends.
        const bool byScript = event->type() == QEvent::Hide && m_application.calls().isInCall();
        const auto endIfGone = [this, byScript] {
            if (!byScript && m_window->isHidden())
                m_application.engine().stop(ExitStatus::ok);
        };
        QMetaObject::invokeMethod(this, endIfGone, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

void WidgetRun::publishGlobals()
{
    ScriptEngine &engine = m_application.engine();
    QScriptValue global = engine.globalObject();
    global.setProperty(QStringLiteral("print"), engine.newFunction(ScriptGlobals::print));
    global.setProperty(QStringLiteral("include"), engine.newFunction(include, this));
    global.setProperty(QStringLiteral("quit"), engine.newFunction(quit, this));
    global.setProperty(QStringLiteral("args"), engine.toScriptValue(m_options.arguments));
    publishWindow();
}

void WidgetRun::publishWindow()
{
    ScriptEngine &engine = m_application.engine();
    const QString name = QStringLiteral("widget");
    if (!m_window) {
        engine.globalObject().setProperty(name, engine.newFunction(noWindow, this),
                                          QScriptValue::PropertyGetter);
        return;
    }
    engine.globalObject().setProperty(name, ScriptGlobals::wrapWindow(engine, *m_window));
}

void WidgetRun::attachDebugger()
{
    m_debugger = std::make_unique<QScriptEngineDebugger>();
    m_debugger->attachTo(&m_application.engine());
    m_debugger->standardWindow()->resize(debuggerSize);
    m_debugger->standardWindow()->show();
    m_debugger->action(QScriptEngineDebugger::InterruptAction)->trigger();
}

void WidgetRun::start()
{
    if (m_robot && !m_robot->load())
        m_application.engine().stop(ExitStatus::scriptError);
    if (m_application.engine().isQuitting())
        return;
    if (m_window)
        m_window->show();
    const CallQueue::Scope scope(m_application.calls());
    m_started = true;
    if (!m_application.engine().evaluateFile(m_options.script))
        m_application.engine().stop(ExitStatus::scriptError);
}

void WidgetRun::endIfNothingIsGoingOn()
{
    if (m_started && !m_window && m_timers.isEmpty() && !m_application.hasSubscriptions()
        && !m_application.awaitsAnswers())
        m_application.engine().stop(ExitStatus::ok);
}

void WidgetRun::end(int status)
{
    m_status = status;
    QApplication::exit();
}

bool WidgetRun::saveScreenshot() const
{
    QApplication::processEvents(); // what the script changed last is laid out
    if (m_window && m_window->grab().save(m_options.screenshot))
        return true;
    std::cerr << "holm: " << m_options.screenshot.toStdString()
              << (m_window ? ": the picture cannot be saved" : ": no picture, the widget has no window")
              << std::endl;
    return false;
}

QScriptValue WidgetRun::include(QScriptContext *context, QScriptEngine *, void *run)
{
    ScriptEngine &engine = static_cast<WidgetRun *>(run)->m_application.engine();
    return engine.include(context, context->argument(0).toString());
}

QScriptValue WidgetRun::quit(QScriptContext *context, QScriptEngine *, void *run)
{
    ScriptEngine &engine = static_cast<WidgetRun *>(run)->m_application.engine();
    engine.stop(context->argument(0).toInt32());
    return engine.unwindIfQuitting(context);
}

QScriptValue WidgetRun::noWindow(QScriptContext *context, QScriptEngine *, void *run)
{
    const QString script = static_cast<WidgetRun *>(run)->m_options.script;
    return context->throwError(QLatin1String("This widget has no face: there is no widget.ui beside ")
                               + script);
}
