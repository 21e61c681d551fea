#include "exitstatus.h"
#include "runcommand.h"
#include "runoptions.h"
#include "watchcommand.h"

#include <QtCore/QCoreApplication>

#include <iostream>

namespace {

const char helpText[] = "Usage: holm COMMAND ...\n"
                        "\n"
                        "A desktop host for widgets, with a simulated handheld to run them on.\n"
                        "\n"
                        "  holm run [options] WIDGET [ARG...]   run a widget; see holm run --help\n"
                        "  holm --version\n"
                        "  holm --help\n";

// Warnings belong on standard error, also where Qt would send them to the system's journal.
void tellMessage(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    // Such as a display that does not answer: Qt would abort, with a page of text.
    if (type == QtFatalMsg) {
        std::cerr << "holm: " << message.section(QLatin1Char('\n'), 0, 0).toStdString() << std::endl;
        std::_Exit(ExitStatus::cannotStart);
    }
    // What Qt tells on a machine without a desktop session is of no use to the author of a widget.
    const bool isNoise = message.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR not set"))
        || message.startsWith(QLatin1String("This plugin does not support "));
    if (!isNoise)
        std::cerr << message.toStdString() + '\n' << std::flush;
}

QStringList toTexts(int argc, char **argv)
{
    QStringList texts;
    for (int i = 0; i < argc; ++i)
        texts.append(QString::fromLocal8Bit(argv[i]));
    return texts;
}

int run(char **argv, QStringList commandLine)
{
    const RunOptions options = RunOptions::parse(commandLine);
    if (options.help) {
        std::cout << RunOptions::helpText().toStdString();
        return ExitStatus::ok;
    }
    if (!options.error.isEmpty()) {
        std::cerr << "holm: " << options.error.toStdString() << std::endl;
        return ExitStatus::cannotStart;
    }
    // Qt takes its own options out of a command line, and would take those of the widget.
    int argc = 1;
    if (!options.watch)
        return runWidget(argc, argv, options);

    const QCoreApplication application(argc, argv);
    commandLine.removeAll(QStringLiteral("--watch"));
    WatchCommand watch(options, QStringList(QStringLiteral("run")) + commandLine);
    return watch.execute();
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication::setOrganizationName(QStringLiteral("holm"));
    QCoreApplication::setApplicationName(QStringLiteral("holm"));
    QCoreApplication::setApplicationVersion(QStringLiteral(HOLM_VERSION));
    qInstallMessageHandler(tellMessage);

    const QStringList commandLine = toTexts(argc, argv);
    const QString command = commandLine.value(1);
    if (command == QLatin1String("run"))
        return run(argv, commandLine.mid(2));
    if (command == QLatin1String("--help") || command == QLatin1String("-h")) {
        std::cout << helpText;
        return ExitStatus::ok;
    }
    if (command == QLatin1String("--version")) {
        std::cout << "holm " HOLM_VERSION "\n";
        return ExitStatus::ok;
    }
    std::cerr << "holm: "
              << (command.isEmpty() ? "no command given"
                                    : "there is no command \"" + command.toStdString() + '"')
              << "; see holm --help" << std::endl;
    return ExitStatus::cannotStart;
}
