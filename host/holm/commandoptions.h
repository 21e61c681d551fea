#pragma once

#include <platform/desktop/devicefolder.h>

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <functional>

/// A command that works on a simulated device, such as "holm reg".
struct DeviceCommand
{
    QString name;
    QString helpText; ///< its --help, up to the options that all of these commands have
    int mostArguments = 0;
    QStringList flags{}; ///< options of its own, without "--", that take no value
    QStringList options{}; ///< and those that take one
    bool makesDevice = true; ///< if false, a folder that is no device is an error
};

/// What was typed behind a device command's name.
struct CommandOptions
{
    platform::DeviceFolder device; ///< exists; with sample data if the command has made it
    QStringList flags; ///< those that were given
    QHash<QString, QString> values; ///< of the options that were given
    QStringList arguments; ///< what is no option; those that begin with "-" and a digit too
};

/// Reads the command line of a device command, sees to the device folder, and calls @p execute. Answers
/// --help and tells what is wrong with the command line or the folder by itself, without calling it. Options
/// may stand anywhere before "--". Returns holm's exit status. Needs no application object.
int runDeviceCommand(const DeviceCommand &command, const QStringList &commandLine,
                     const std::function<int(const CommandOptions &)> &execute);

/// Tells on standard error what is wrong with a command line, and where help is. Returns the status for it.
int tellMisuse(const DeviceCommand &command, const QString &problem);

/// Tells on standard error why a command failed. Returns the status for it.
int tellFailure(const QString &problem);

/// A text of the user's as messages show it.
QString inQuotes(const QString &text);
