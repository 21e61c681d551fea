#pragma once

#include <QtScript/QScriptValue>

class QScriptContext;
class QScriptEngine;
class QWidget;

/// What the engines of a run, that of the widget and that of its robot, have in common.
namespace ScriptGlobals {

/// The native function print(...): its arguments as texts on standard output, a blank between them.
QScriptValue print(QScriptContext *context, QScriptEngine *engine);

/// A window for scripts: the properties, signals and slots of its class, and its named children as
/// properties. The window is not owned; scripts that use it after its death get an exception.
QScriptValue wrapWindow(QScriptEngine &engine, QWidget &window);

} // namespace ScriptGlobals
