#pragma once

#include <QtCore/QFlags>
#include <QtCore/QString>

#include <initializer_list>
#include <limits>

class FunctionArguments;

/// The kinds of script value that an argument may be; QScriptValue's own tests decide.
enum class ArgumentType {
    String = 0x01,
    Number = 0x02,
    Bool = 0x04,
    Object = 0x08,
    QObject = 0x10,
    Function = 0x20,
    Array = 0x40,
    Null = 0x80,
    Any = 0x100,
};
Q_DECLARE_FLAGS(ArgumentTypes, ArgumentType)
Q_DECLARE_OPERATORS_FOR_FLAGS(ArgumentTypes)

constexpr int anyCount = std::numeric_limits<int>::max();

/// How many arguments a script function takes, and of which types. Arguments beyond those listed may
/// be of any type; optional ones are checked if they are there.
struct ArgumentRule
{
    int least;
    int most;
    std::initializer_list<ArgumentTypes> types;
};

/// Whether the arguments keep the rule: the count first, then the types in order.
bool argumentsMatch(const FunctionArguments &arguments, const ArgumentRule &rule);

/// As argumentsMatch(), but tells the user with reportInvalidArguments() if they do not.
bool checkArguments(const char *function, const FunctionArguments &arguments, const ArgumentRule &rule);

/// Shows the message that all script functions give for bad arguments.
void reportInvalidArguments(const char *function);

/// Shows a message box titled "Error" with the function's name, a colon, a blank and @p message, which
/// is translated in the context "KestCommandProvider". Returns when the user has closed it.
void reportError(const char *function, const char *message);
