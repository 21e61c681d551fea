#pragma once

#include "modaldialogs.h"
#include "scriptengine.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>

#include <map>
#include <memory>
#include <vector>

/// Answers dialogs in a user's place as a second script tells it, with real mouse and key events.
///
/// The script has an engine of its own and sees "robot" and "print". Its handlers are called for each modal
/// dialog that opens, from the dialog's own event loop, also while another handler is acting. A dialog that
/// nobody closes in time, or an exception in a handler, ends the run. GUI thread only.
class Robot : public QObject
{
    Q_OBJECT

public:
    /// @p run is the engine of the widget's script. It has to outlive the robot, and @p dialogs, too.
    Robot(ScriptEngine &run, const ModalDialogs &dialogs, const QString &file);

    /// Evaluates the robot's script. Returns false if that fails, which has been told on standard error then.
    bool load();

private:
    /// A dialog that is open.
    struct Opening
    {
        ModalDialog dialog;
        QElapsedTimer age;
        std::unique_ptr<QTimer> deadline;
    };

    void publish();
    void dialogOpened(const ModalDialog &dialog);
    void dialogClosed(const QWidget *window);
    void serveOnceActive(int id);
    void serve(int id);
    void deadlineMissed(int id);
    void signalHandlerFailed(const QScriptValue &exception);
    void endRun(int status);
    std::vector<ModalDialog> innermostFirst() const;

    static QScriptValue onDialog(QScriptContext *context, QScriptEngine *engine, void *robot);

    ScriptEngine &m_run;
    const QString m_file;
    ScriptEngine m_engine;
    QScriptValueList m_handlers;
    std::map<int, Opening> m_openings; ///< by numbers in the order of opening
    int m_lastId = 0;
};
