#include "robotactions.h"

#include "robotinput.h"
#include "robottargets.h"
#include "scriptengine.h"
#include "scriptglobals.h"

#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <QtScript/QScriptContext>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <limits>

namespace {

constexpr int mostNamedTargets = 40;

QString quoted(const QString &text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString listed(const std::vector<RobotTarget> &targets)
{
    QStringList names;
    for (const RobotTarget &target : targets) {
        if (target.isEnabled && !names.contains(quoted(target.text)))
            names.append(quoted(target.text));
        if (names.size() > mostNamedTargets) {
            names.last() = QStringLiteral("...");
            break;
        }
    }
    return names.isEmpty() ? QStringLiteral("there is nothing to be clicked")
                           : QLatin1String("what can be clicked: ") + names.join(QLatin1String(", "));
}

QScriptValue clickTarget(QScriptContext &context, const RobotTarget &target)
{
    if (!target.isEnabled)
        return context.throwError(quoted(target.text) + QLatin1String(" is disabled"));
    if (!target.click())
        return context.throwError(quoted(target.text) + QLatin1String(" is out of the mouse's reach"));
    return QScriptValue();
}

QScriptValue pressKey(QScriptContext &context, const QWidget &dialog, const QString &name)
{
    return RobotInput::pressKey(dialog, name)
        ? QScriptValue()
        : context.throwError(QLatin1String("there is no key ") + quoted(name));
}

QScriptValue type(QScriptContext &context, QWidget &)
{
    QString text = context.argument(0).toString();
    while (!text.isEmpty()) {
        // A key may have closed the dialog.
        const QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog)
            return context.throwError(QLatin1String("no dialog is open any more, to type ") + quoted(text));
        text = RobotInput::typeCharacter(*dialog, text);
    }
    return QScriptValue();
}

QScriptValue key(QScriptContext &context, QWidget &dialog)
{
    return pressKey(context, dialog, context.argument(0).toString());
}

QScriptValue click(QScriptContext &context, QWidget &dialog)
{
    const QString text = context.argument(0).toString();
    const std::vector<RobotTarget> targets = RobotTargets::in(dialog);
    const RobotTarget *found = nullptr;
    for (const RobotTarget &target : targets) {
        if (target.text == text && (!found || (target.isEnabled && !found->isEnabled)))
            found = &target;
    }
    if (found && found->isEnabled)
        return clickTarget(context, *found);
    return context.throwError((found ? quoted(text) + QLatin1String(" is disabled; ")
                                     : QLatin1String("there is no ") + quoted(text) + QLatin1String("; "))
                              + listed(targets));
}

QScriptValue clickAt(QScriptContext &context, QWidget &dialog)
{
    const double x = context.argument(0).toNumber();
    const double y = context.argument(1).toNumber();
    if (!(x >= 0 && y >= 0 && x < dialog.width() && y < dialog.height()))
        return context.throwError(QStringLiteral("the dialog reaches from (0, 0) to (%1, %2)")
                                      .arg(dialog.width() - 1)
                                      .arg(dialog.height() - 1));
    RobotInput::click(dialog, QPoint(static_cast<int>(x), static_cast<int>(y)));
    return QScriptValue();
}

QScriptValue rows(QScriptContext &context, QWidget &dialog)
{
    const QAbstractItemView *list = RobotTargets::list(dialog);
    return context.engine()->toScriptValue(list ? RobotTargets::rows(*list) : QStringList());
}

QScriptValue selected(QScriptContext &, QWidget &dialog)
{
    const QAbstractItemView *list = RobotTargets::list(dialog);
    const QString text = list ? RobotTargets::selectedRow(*list) : QString();
    return text.isNull() ? QScriptValue(QScriptValue::NullValue) : QScriptValue(text);
}

QScriptValue accept(QScriptContext &context, QWidget &dialog)
{
    const auto button = RobotTargets::answerButton(dialog, true);
    return button ? clickTarget(context, *button) : pressKey(context, dialog, QStringLiteral("Return"));
}

QScriptValue cancel(QScriptContext &context, QWidget &dialog)
{
    auto target = RobotTargets::answerButton(dialog, false);
    if (!target)
        target = RobotTargets::menuAction(dialog, QStringLiteral("actionExit"));
    return target ? clickTarget(context, *target) : pressKey(context, dialog, QStringLiteral("Esc"));
}

QScriptValue screenshot(QScriptContext &context, QWidget &dialog)
{
    const QString file = context.argument(0).toString();
    return dialog.grab().save(file)
        ? QScriptValue()
        : context.throwError(file + QLatin1String(": the picture cannot be saved"));
}

QScriptValue wait(QScriptContext *context, QScriptEngine *, void *engine)
{
    const double longest = std::numeric_limits<int>::max();
    const double milliseconds = context->argument(0).toInteger();
    QEventLoop loop;
    QTimer::singleShot(static_cast<int>(std::clamp(milliseconds, 0.0, longest)), Qt::PreciseTimer, &loop,
                       &QEventLoop::quit);
    loop.exec(); // the end of the run ends it, too
    return static_cast<ScriptEngine *>(engine)->unwindIfQuitting(context);
}

enum class WithoutDialog { Throw, Ignore };

template <QScriptValue (*action)(QScriptContext &, QWidget &), WithoutDialog without = WithoutDialog::Throw>
QScriptValue act(QScriptContext *context, QScriptEngine *, void *engine)
{
    auto &scriptEngine = *static_cast<ScriptEngine *>(engine);
    if (scriptEngine.isQuitting())
        return scriptEngine.unwindIfQuitting(context);
    QWidget *dialog = QApplication::activeModalWidget();
    if (!dialog)
        return without == WithoutDialog::Ignore ? QScriptValue()
                                                : context->throwError(QStringLiteral("no dialog is open"));
    const QScriptValue result = action(*context, *dialog);
    return scriptEngine.isQuitting() ? scriptEngine.unwindIfQuitting(context) : result;
}

} // namespace

void RobotActions::publish(ScriptEngine &engine, QScriptValue robot)
{
    const struct
    {
        const char *name;
        QScriptEngine::FunctionWithArgSignature function;
    } actions[] = {{"type", act<type>},
                   {"key", act<key>},
                   {"click", act<click>},
                   {"clickAt", act<clickAt>},
                   {"rows", act<rows>},
                   {"selected", act<selected>},
                   {"accept", act<accept, WithoutDialog::Ignore>},
                   {"cancel", act<cancel, WithoutDialog::Ignore>},
                   {"screenshot", act<screenshot>},
                   {"wait", wait}};
    for (const auto &action : actions)
        robot.setProperty(QLatin1String(action.name), engine.newFunction(action.function, &engine));
    robot.setProperty(QStringLiteral("print"), engine.newFunction(ScriptGlobals::print));
}
