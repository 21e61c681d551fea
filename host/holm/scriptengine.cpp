#include "scriptengine.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTextStream>
#include <QtScript/QScriptContext>
#include <QtScript/QScriptContextInfo>

#include <iostream>

namespace {

constexpr int longestFrame = 160;
constexpr int mostBytes = 64 * 1024 * 1024; // of a script; a device file may go on for ever

QString place(const QString &file, int line)
{
    return file + QLatin1Char(':') + QString::number(line);
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

/// A script file's text, or why it cannot be evaluated.
struct Source
{
    explicit Source(const QString &path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            error = path + QLatin1String(": ") + file.errorString();
            return;
        }
        const QByteArray bytes = file.read(mostBytes + 1);
        if (bytes.size() > mostBytes) {
            error = path + QLatin1String(": longer than 64 MB, and so hardly a script");
            return;
        }
        QTextStream stream(bytes);
        stream.setCodec("UTF-8");
        text = stream.readAll();
        error = syntaxErrorIn(text, path);
    }

    QString text;
    QString error;
};

// The innermost code that comes from a file; native functions and eval() have none.
QScriptContextInfo nearestScript(const QScriptContext *context)
{
    for (; context; context = context->parentContext()) {
        const QScriptContextInfo info(context);
        if (!info.fileName().isEmpty())
            return info;
    }
    return QScriptContextInfo();
}

// A thrown value that is no Error, and code in eval(), do not know their file; their callers do.
QString fileOf(const QStringList &frames)
{
    for (const QString &frame : frames) {
        const QString where = frame.section(QLatin1String(" at "), -1);
        if (where.contains(QLatin1Char(':')))
            return where.section(QLatin1Char(':'), 0, -2);
    }
    return QString();
}

// A frame names the call's arguments, which may be whole arrays.
QString shortened(const QString &frame)
{
    if (frame.size() <= longestFrame)
        return frame;
    return frame.left(longestFrame) + QLatin1String("... at ") + frame.section(QLatin1String(" at "), -1);
}

void tell(const QString &line)
{
    std::cerr << line.toStdString() << std::endl;
}

} // namespace

QScriptValueList argumentsOf(const QScriptContext *context, int first)
{
    QScriptValueList arguments;
    for (int i = first; i < context->argumentCount(); ++i)
        arguments.append(context->argument(i));
    return arguments;
}

ScriptEngine::ScriptEngine(QObject *parent)
    : QScriptEngine(parent)
{
}

bool ScriptEngine::evaluateFile(const QString &file)
{
    m_mainFile = file;
    const Source source(file);
    if (!source.error.isEmpty()) {
        tell(source.error);
        return false;
    }
    evaluate(source.text, file);
    if (!hasUncaughtException() || m_quitting)
        return true;
    reportException();
    return false;
}

QScriptValue ScriptEngine::include(QScriptContext *context, const QString &path)
{
    const QScriptContextInfo includer = nearestScript(context);
    const QFileInfo from(includer.isNull() ? m_mainFile : includer.fileName());
    const QString file = QDir::cleanPath(from.dir().filePath(path));
    const Source source(file);
    if (!source.error.isEmpty())
        return context->throwError(QLatin1String("include: ") + source.error);
    context->setActivationObject(globalObject());
    context->setThisObject(globalObject());
    return evaluate(source.text, file);
}

QString ScriptEngine::syntaxError(const QString &file)
{
    return Source(file).error;
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

bool ScriptEngine::isQuitting() const
{
    return m_quitting;
}

QString ScriptEngine::position() const
{
    const QScriptContextInfo info = nearestScript(currentContext());
    return info.isNull() ? QString() : place(info.fileName(), info.lineNumber());
}

void ScriptEngine::reportException()
{
    QStringList frames;
    const QStringList backtrace = uncaughtExceptionBacktrace();
    for (const QString &frame : backtrace) {
        if (!frame.endsWith(QLatin1String(" at -1"))) // native functions have no place
            frames.append(shortened(frame));
    }

    const QScriptValue exception = uncaughtException();
    QString file = exception.property(QStringLiteral("fileName")).toString();
    if (file.isEmpty())
        file = fileOf(frames);
    if (file.isEmpty())
        file = m_mainFile; // a stack that overflows in native functions has no frames
    tell(place(file, uncaughtExceptionLineNumber()) + QLatin1String(": ") + exception.toString());
    for (const QString &frame : qAsConst(frames))
        tell(QLatin1String("    ") + frame);
}
