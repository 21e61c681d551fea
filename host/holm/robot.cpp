#include "robot.h"

#include "exitstatus.h"
#include "robotactions.h"
#include "scriptglobals.h"

#include <QtGui/QWindow>
#include <QtScript/QScriptContext>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <chrono>
#include <iostream>
#include <iterator>

namespace {

constexpr std::chrono::seconds patience(5);
constexpr std::chrono::seconds activationPatience(1);
constexpr std::chrono::milliseconds activationCheck(5);
// A handler that only computes is not to hold up what else is due, its dialog's deadline above all.
constexpr std::chrono::milliseconds longestComputing(100);

// The engine aborts script code only where a native function or an evaluation is underneath.
QScriptValue callHandler(QScriptContext *context, QScriptEngine *)
{
    return context->argument(0).call(QScriptValue(), QScriptValueList{context->argument(1)});
}

} // namespace

Robot::Robot(ScriptEngine &run, const ModalDialogs &dialogs, const QString &file)
    : m_run(run)
    , m_file(file)
{
    connect(&dialogs, &ModalDialogs::opened, this, &Robot::dialogOpened);
    connect(&dialogs, &ModalDialogs::closed, this, &Robot::dialogClosed);
    connect(&m_run, &ScriptEngine::quitRequested, &m_engine, &ScriptEngine::stop);
    connect(&m_engine, &QScriptEngine::signalHandlerException, this, &Robot::signalHandlerFailed);
    publish();
}

bool Robot::load()
{
    return m_engine.evaluateFile(m_file);
}

void Robot::publish()
{
    m_engine.setProcessEventsInterval(static_cast<int>(longestComputing.count()));
    QScriptValue robot = m_engine.newObject();
    robot.setProperty(QStringLiteral("onDialog"), m_engine.newFunction(onDialog, this));
    RobotActions::publish(m_engine, robot);
    QScriptValue global = m_engine.globalObject();
    global.setProperty(QStringLiteral("robot"), robot);
    global.setProperty(QStringLiteral("print"), m_engine.newFunction(ScriptGlobals::print));
}

QScriptValue Robot::onDialog(QScriptContext *context, QScriptEngine *, void *robot)
{
    if (!context->argument(0).isFunction())
        return context->throwError(QScriptContext::TypeError,
                                   QStringLiteral("onDialog: the argument must be a function"));
    static_cast<Robot *>(robot)->m_handlers.append(context->argument(0));
    return QScriptValue();
}

void Robot::dialogOpened(const ModalDialog &dialog)
{
    const int id = ++m_lastId;
    Opening opening{dialog, {}, std::make_unique<QTimer>()};
    opening.age.start();
    opening.deadline->setSingleShot(true);
    opening.deadline->setTimerType(Qt::PreciseTimer);
    connect(opening.deadline.get(), &QTimer::timeout, this, [this, id] { deadlineMissed(id); });
    opening.deadline->start(patience);
    m_openings.emplace(id, std::move(opening));
    QTimer::singleShot(0, this, [this, id] { serveOnceActive(id); });
}

void Robot::dialogClosed(const QWidget *window)
{
    const auto found = std::find_if(m_openings.begin(), m_openings.end(), [window](const auto &entry) {
        return entry.second.dialog.window == window;
    });
    if (found != m_openings.end())
        m_openings.erase(found);
}

void Robot::serveOnceActive(int id)
{
    const auto found = m_openings.find(id);
    if (found == m_openings.end() || !found->second.dialog.window)
        return;
    const QWindow *window = found->second.dialog.window->windowHandle();
    if (window == QGuiApplication::focusWindow()
        || found->second.age.hasExpired(std::chrono::milliseconds(activationPatience).count()))
        serve(id);
    else
        QTimer::singleShot(activationCheck, this, [this, id] { serveOnceActive(id); });
}

void Robot::serve(int id)
{
    const QScriptValue caller = m_engine.newFunction(callHandler);
    const QScriptValue dialog = ScriptGlobals::wrapWindow(m_engine, *m_openings.at(id).dialog.window);
    for (int i = 0; i < m_handlers.size() && m_openings.count(id) > 0; ++i) {
        const QScriptValue result = m_engine.call(QScriptValue(), caller, {m_handlers.at(i), dialog}, true);
        // A call that an exception ended has no value at all.
        if (!result.isValid() && !m_engine.isQuitting())
            endRun(ExitStatus::scriptError);
    }
}

void Robot::deadlineMissed(int id)
{
    if (m_run.isQuitting() || !m_openings.at(id).dialog.window)
        return;
    for (const ModalDialog &dialog : innermostFirst())
        dialog.tellCancelled();
    std::cerr << "holm: no handler of the robot closed it within " << patience.count() << " seconds"
              << std::endl;
    endRun(ExitStatus::unanswered);
}

void Robot::signalHandlerFailed(const QScriptValue &exception)
{
    if (m_engine.isQuitting())
        return;
    const QString file = exception.property(QStringLiteral("fileName")).toString();
    std::cerr << (file.isEmpty() ? m_file : file).toStdString() << ':'
              << m_engine.uncaughtExceptionLineNumber() << ": " << exception.toString().toStdString()
              << std::endl;
    endRun(ExitStatus::scriptError);
}

void Robot::endRun(int status)
{
    m_run.stop(status);
    for (const ModalDialog &dialog : innermostFirst())
        dialog.cancel();
}

std::vector<ModalDialog> Robot::innermostFirst() const
{
    std::vector<ModalDialog> open;
    std::transform(m_openings.crbegin(), m_openings.crend(), std::back_inserter(open),
                   [](const auto &entry) { return entry.second.dialog; });
    return open;
}
