#pragma once

class QScriptValue;
class ScriptEngine;

/// What a robot's script can do.
namespace RobotActions {

/// Gives @p robot its functions, except for onDialog(). They act on the active modal window, and throw if
/// none is open or if the window has not got what they ask for; once the engine is stopped, they all throw.
void publish(ScriptEngine &engine, QScriptValue robot);

} // namespace RobotActions
