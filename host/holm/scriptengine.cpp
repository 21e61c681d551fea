#include "scriptengine.h"

#include <QtCore/QFile>
#include <QtCore/QTextStream>
#include <QtScript/QScriptContext>
#include <QtScript/QScriptContextInfo>

#include <iostream>

namespace {

constexpr int longestFrame = 160;

QString place(const QString &file, int line)
{
    return file + QLatin1Char(':') + QString::number(line);
}

struct Source
{
    QString text;
    QString error;
};

Source read(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {QString(), path + QLatin1String(": ") + file.errorString()};
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    return {stream.readAll(), QString()};
}

QString syntaxErrorIn(const QString &text, const QString &file)
{
    const QScriptSyntaxCheckResult result = QScriptEngine::checkSyntax(text);
    if (result.state() == QScriptSyntaxCheckResult::Valid)
        return QString();
    const QString message = result.state() == QScriptSyntaxCheckResult::Intermediate
        ? QStringLiteral("the file ends in the middle of a statement")
        : QLatin1String("not understood from column ") + QString::number(result.errorColumnNumber());
    return place(file, result.errorLineNumber()) + QLatin1String(": SyntaxError: ") + message;
}

void tell(const QString &line)
{
    std::cerr << line.toStdString() << std::endl;
}

} // namespace

ScriptEngine::ScriptEngine(QObject *parent)
    : QScriptEngine(parent)
{
}

bool ScriptEngine::evaluateFile(const QString &file)
{
    const Source source = read(file);
    const QString error = source.error.isEmpty() ? syntaxErrorIn(source.text, file) : source.error;
    if (!error.isEmpty()) {
        tell(error);
        return false;
    }
    evaluate(source.text, file);
    if (!hasUncaughtException() || m_quitting)
        return true;
    reportException();
    return false;
}

QScriptValue ScriptEngine::include(QScriptContext *context, const QString &file)
{
    const Source source = read(file);
    const QString error = source.error.isEmpty() ? syntaxErrorIn(source.text, file) : source.error;
    if (!error.isEmpty())
        return context->throwError(QLatin1String("include: ") + error);
    context->setActivationObject(globalObject());
    context->setThisObject(globalObject());
    return evaluate(source.text, file);
}

QString ScriptEngine::syntaxError(const QString &file)
{
    const Source source = read(file);
    return source.error.isEmpty() ? syntaxErrorIn(source.text, file) : source.error;
}

QScriptValue ScriptEngine::call(const QScriptValue &thisObject, const QScriptValue &function,
                                const QScriptValueList &arguments, bool reportErrors)
{
    if (m_quitting)
        return QScriptValue();
    const QScriptValue result = QScriptValue(function).call(thisObject, arguments);
    // While quitting, the exception has to unwind the script that made this call, too.
    if (!hasUncaughtException() || m_quitting)
        return result;
    if (reportErrors)
        reportException();
    clearExceptions();
    return QScriptValue();
}

void ScriptEngine::stop(int status)
{
    if (m_quitting)
        return;
    m_quitting = true;
    abortEvaluation(); // for a script that catches the exception of unwindIfQuitting() in a loop
    emit quitRequested(status);
}

QScriptValue ScriptEngine::unwindIfQuitting(QScriptContext *context) const
{
    return m_quitting ? context->throwError(QStringLiteral("The run is ending.")) : QScriptValue();
}

QString ScriptEngine::position() const
{
    for (const QScriptContext *context = currentContext(); context; context = context->parentContext()) {
        const QScriptContextInfo info(context);
        if (!info.fileName().isEmpty())
            return place(info.fileName(), info.lineNumber());
    }
    return QString();
}

void ScriptEngine::reportException()
{
    QStringList frames;
    const QStringList backtrace = uncaughtExceptionBacktrace();
    for (const QString &frame : backtrace) {
        // Native frames have no place; the text of one may hold whole arrays.
        if (!frame.endsWith(QLatin1String(" at -1")))
            frames.append(frame.size() <= longestFrame ? frame
                                                       : frame.left(longestFrame) + QLatin1String("... at ")
                                  + frame.section(QLatin1String(" at "), -1));
    }

    const QScriptValue exception = uncaughtException();
    const QString file = exception.property(QStringLiteral("fileName")).toString();
    // A thrown value that is no Error does not know where it comes from.
    const QString where = file.isEmpty() ? frames.value(0).section(QLatin1String(" at "), -1)
                                         : place(file, uncaughtExceptionLineNumber());
    tell(where + QLatin1String(": ") + exception.toString());
    for (const QString &frame : qAsConst(frames))
        tell(QLatin1String("    ") + frame);
}
