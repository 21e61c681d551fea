#pragma once

#include <QtScript/QScriptEngine>

/// The arguments of a native function's call, from the one at @p first on.
QScriptValueList argumentsOf(const QScriptContext *context, int first = 0);

/// The script engine of a run, with the reporting of errors and the way to end a run from a script.
///
/// Errors go to standard error as "file:line: message", followed by the stack.
class ScriptEngine : public QScriptEngine
{
    Q_OBJECT

public:
    explicit ScriptEngine(QObject *parent = nullptr);

    /// Evaluates a script file in the global scope. Returns false if it cannot be read, has a syntax
    /// error or lets an exception through; that has been reported then.
    bool evaluateFile(const QString &file);

    /// What a native function that includes a script file returns: evaluates the file in the global scope,
    /// wherever it is included from. Its path is relative to the including file. Throws in @p context if
    /// it cannot be read or has a syntax error.
    QScriptValue include(QScriptContext *context, const QString &path);

    /// The syntax error in a script file as "file:line: message", why it cannot be read, or an empty text.
    static QString syntaxError(const QString &file);

    /// Calls a script function. An exception ends here, and is reported if @p reportErrors.
    QScriptValue call(const QScriptValue &thisObject, const QScriptValue &function,
                      const QScriptValueList &arguments, bool reportErrors);

    /// Asks to end the run. No script function is called any more.
    void stop(int status);

    bool isQuitting() const;

    /// What a native function returns last: undefined, or once the run is ending an exception
    /// that ends the script which called it.
    QScriptValue unwindIfQuitting(QScriptContext *context) const;

    /// "file:line" of the script code that is running, or an empty text.
    QString position() const;

signals:
    void quitRequested(int status);

private:
    void reportException();

    QString m_mainFile;
    bool m_quitting = false;
};
