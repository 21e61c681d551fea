#include "commandoptions.h"
#include "devicecommands.h"
#include "exitstatus.h"
#include "pimcommand.h"
#include "regcommand.h"
#include "runcommand.h"
#include "runoptions.h"
#include "s2pcommand.h"
#include "watchcommand.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <iostream>
#include <iterator>

namespace {

const char helpText[] = "Usage: holm COMMAND ...\n"
                        "\n"
                        "A desktop host for widgets, with a simulated handheld to run them on.\n"
                        "\n"
                        "  holm run [options] WIDGET [ARG...]   run a widget\n"
                        "  holm reg ACTION ...                  show and change the handheld's registry\n"
                        "  holm radio [NAME [STATE]]            show and switch its radios\n"
                        "  holm sound [PROFILE]                 show and set its sound profile\n"
                        "  holm network [up|down]               show and switch its data connection\n"
                        "  holm pim import FILE...              take in appointments, tasks and contacts\n"
                        "  holm s2p                             be its music player\n"
                        "\n"
                        "  holm COMMAND --help                  tell more about a command\n"
                        "  holm --version\n"
                        "  holm --help\n";

// Warnings belong on standard error, also where Qt would send them to the system's journal.
void tellMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    // Such as a display that does not answer: Qt would abort, with a page of text.
    if (type == QtFatalMsg) {
        std::cerr << "holm: " << message.section(QLatin1Char('\n'), 0, 0).toStdString() << std::endl;
        std::_Exit(ExitStatus::cannotStart);
    }
    // What Qt tells on a machine without a desktop session is of no use to the author of a widget, nor what
    // the libraries behind the calendar and the contacts tell without a file's name.
    const bool isNoise = QByteArray(context.category).startsWith("kf.")
        || message.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR not set"))
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

int run(int &argc, char **argv, const QStringList &commandLine)
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
    if (!options.watch)
        return runWidget(argc, argv, options);

    const QCoreApplication application(argc, argv);
    QStringList once = commandLine;
    once.removeAll(QStringLiteral("--watch"));
    WatchCommand watch(options, QStringList(QStringLiteral("run")) + once);
    return watch.execute();
}

/// A command by its name. @p commandLine is what follows it.
struct Command
{
    QLatin1String name;
    int (*execute)(int &argc, char **argv, const QStringList &commandLine);
};

template <int (*execute)(const QStringList &commandLine)>
int withoutQt(int &, char **, const QStringList &commandLine)
{
    return execute(commandLine);
}

const Command commands[] = {
    {QLatin1String("run"), run},
    {QLatin1String("reg"), withoutQt<regCommand>},
    {QLatin1String("radio"), withoutQt<radioCommand>},
    {QLatin1String("sound"), withoutQt<soundCommand>},
    {QLatin1String("network"), withoutQt<networkCommand>},
    {QLatin1String("pim"), withoutQt<pimCommand>},
    {QLatin1String("s2p"), s2pCommand},
};

int execute(const QStringList &commandLine, char **argv)
{
    const QString command = commandLine.value(1);
    const auto *found = std::find_if(std::begin(commands), std::end(commands),
                                     [&command](const Command &entry) { return entry.name == command; });
    if (found != std::end(commands)) {
        // Qt takes its own options out of a command line, and would take those of a widget.
        int onlyProgram = 1;
        return found->execute(onlyProgram, argv, commandLine.mid(2));
    }
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

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication::setOrganizationName(QStringLiteral("holm"));
    QCoreApplication::setApplicationName(QStringLiteral("holm"));
    QCoreApplication::setApplicationVersion(QStringLiteral(HOLM_VERSION));
    qInstallMessageHandler(tellMessage);

    const QStringList commandLine = toTexts(argc, argv);
    const int status = execute(commandLine, argv);
    // What a widget prints is its own affair.
    const bool isRun = commandLine.value(1) == QLatin1String("run");
    if (status != ExitStatus::ok || isRun || std::cout.flush())
        return status;
    return tellFailure(QStringLiteral("the output cannot be written"));
}
