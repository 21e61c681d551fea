#include "scriptglobals.h"

#include "scriptengine.h"

#include <QtWidgets/QWidget>

#include <iostream>

namespace {

QScriptValue wrapped(QScriptEngine &engine, QObject *object)
{
    // The engine's own way to children would give each of them a second wrapper.
    return engine.newQObject(object, QScriptEngine::QtOwnership,
                             QScriptEngine::ExcludeDeleteLater | QScriptEngine::ExcludeChildObjects);
}

} // namespace

QScriptValue ScriptGlobals::print(QScriptContext *context, QScriptEngine *)
{
    QStringList words;
    for (const QScriptValue &argument : argumentsOf(context))
        words.append(argument.toString());
    std::cout << words.join(QLatin1Char(' ')).toStdString() << std::endl;
    return QScriptValue();
}

QScriptValue ScriptGlobals::wrapWindow(QScriptEngine &engine, QWidget &window)
{
    QScriptValue wrapper = wrapped(engine, &window);
    const QObjectList children = window.findChildren<QObject *>();
    for (QObject *child : children) {
        // Qt names its own parts "qt_..."; a property of the window itself must stay what it is.
        const QString name = child->objectName();
        const bool isTaken = window.metaObject()->indexOfProperty(name.toUtf8().constData()) >= 0;
        if (!name.isEmpty() && !name.startsWith(QLatin1String("qt_")) && !isTaken)
            wrapper.setProperty(name, wrapped(engine, child));
    }
    return wrapper;
}
