#include "commandoptions.h"

#include "exitstatus.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <iostream>

namespace {

const char commonHelp[] = "  --device DIR   device folder (else $HOLM_DEVICE, else holm/device in the\n"
                          "                 user's data directory)\n"
                          "  -h, --help     show this\n";

// No argument of a program can begin with it.
const QChar mark(QChar::Null);

// The parser would take a negative number for an option.
QString withMark(const QString &argument)
{
    const bool isNegative =
        argument.size() > 1 && argument.at(0) == QLatin1Char('-') && argument.at(1).isDigit();
    return isNegative ? mark + argument : argument;
}

QString withoutMark(const QString &argument)
{
    return argument.startsWith(mark) ? argument.mid(1) : argument;
}

template <class Change>
QStringList changed(const QStringList &texts, Change change)
{
    QStringList results;
    for (const QString &text : texts)
        results.append(change(text));
    return results;
}

// The parser's texts are sentences; holm's own are not.
QString withoutSentenceMarks(const QString &text)
{
    const QString start = text.left(1).toLower() + text.mid(1);
    return start.endsWith(QLatin1Char('.')) ? start.chopped(1) : start;
}

QString problemWithDevice(const DeviceCommand &command, const platform::DeviceFolder &device)
{
    if (command.makesDevice)
        return device.create();
    return QFileInfo::exists(device.path() + QLatin1String("/registry.db"))
        ? QString()
        : device.path() + QLatin1String(" is no device folder; holm run makes one");
}

} // namespace

int runDeviceCommand(const DeviceCommand &command, const QStringList &commandLine,
                     const std::function<int(const CommandOptions &)> &execute)
{
    const QCommandLineOption device(QStringLiteral("device"), QString(), QStringLiteral("DIR"));
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    QCommandLineParser parser;
    parser.addOptions({device, help});
    for (const QString &flag : command.flags)
        parser.addOption(QCommandLineOption(flag));
    for (const QString &option : command.options)
        parser.addOption(QCommandLineOption(option, QString(), QStringLiteral("VALUE")));

    if (!parser.parse(QStringList(command.name) + changed(commandLine, withMark)))
        return tellMisuse(command, withoutSentenceMarks(parser.errorText()));
    if (parser.isSet(help)) {
        std::cout << command.helpText.toStdString() << commonHelp;
        return ExitStatus::ok;
    }
    const QStringList arguments = changed(parser.positionalArguments(), withoutMark);
    if (arguments.size() > command.mostArguments)
        return tellMisuse(command,
                          QLatin1String("there is too much on the command line: ")
                              + arguments.mid(command.mostArguments).join(QLatin1Char(' ')));

    QStringList flags = command.flags;
    flags.erase(std::remove_if(flags.begin(), flags.end(),
                               [&parser](const QString &flag) { return !parser.isSet(flag); }),
                flags.end());
    QHash<QString, QString> values;
    for (const QString &option : command.options) {
        if (parser.isSet(option))
            values.insert(option, withoutMark(parser.value(option)));
    }
    const QString folder = withoutMark(parser.value(device));
    const CommandOptions options{folder.isEmpty() ? platform::DeviceFolder::current()
                                                  : platform::DeviceFolder(folder),
                                 flags, values, arguments};
    const QString problem = problemWithDevice(command, options.device);
    return problem.isEmpty() ? execute(options) : tellFailure(problem);
}

int tellMisuse(const DeviceCommand &command, const QString &problem)
{
    std::cerr << "holm: " << problem.toStdString() << "; see holm " << command.name.toStdString() << " --help"
              << std::endl;
    return ExitStatus::cannotStart;
}

int tellFailure(const QString &problem)
{
    std::cerr << "holm: " << problem.toStdString() << std::endl;
    return ExitStatus::failed;
}

QString inQuotes(const QString &text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}
