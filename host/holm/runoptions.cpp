#include "runoptions.h"

#include "providerplugins.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>

#include <cmath>
#include <limits>

namespace {

constexpr std::chrono::seconds unattendedTimeout(30);

// There is no application object yet when the command line is read.
QString programFolder()
{
    return QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath();
}

QString besideProgram(const char *relativePath)
{
    return QDir::cleanPath(programFolder() + QLatin1Char('/') + QLatin1String(relativePath));
}

QString findWidget(const QString &widget, RunOptions &options)
{
    const QFileInfo info(widget);
    if (!info.exists())
        return widget + QLatin1String(": there is no such widget");
    if (!info.isDir()) {
        options.script = widget;
        return QString();
    }
    const QDir folder(QDir::cleanPath(widget));
    options.script = folder.filePath(QStringLiteral("widget.js"));
    if (!QFileInfo::exists(options.script))
        return options.script + QLatin1String(": missing; a widget is a folder with a widget.js");
    const QFileInfo form(folder.filePath(QStringLiteral("widget.ui")));
    if (form.exists() || form.isSymLink())
        options.form = form.filePath();
    return QString();
}

QString readTimeout(const QString &text, std::chrono::milliseconds &timeout)
{
    constexpr double millisecondsPerSecond = 1000;
    bool isNumber = false;
    const double milliseconds = text.toDouble(&isNumber) * millisecondsPerSecond;
    if (!isNumber || !(milliseconds > 0) || milliseconds > std::numeric_limits<int>::max())
        return QLatin1String("--timeout wants a number of seconds above 0 and below 2000000, not \"") + text
            + QLatin1Char('"');
    timeout = std::chrono::milliseconds(static_cast<int>(std::ceil(milliseconds)));
    return QString();
}

QString problemWithRobot(const QString &path)
{
    if (path.isEmpty())
        return QStringLiteral("--robot wants the name of a file");
    const QFileInfo info(path);
    if (info.exists() && !info.isFile()) // which might never end
        return QLatin1String("--robot: \"") + path + QLatin1String("\" is not a file");
    QFile file(path);
    return file.open(QIODevice::ReadOnly)
        ? QString()
        : QLatin1String("--robot: \"") + path + QLatin1String("\" cannot be read: ") + file.errorString();
}

bool isLocale(const QString &name)
{
    return name.isEmpty() || name == QLatin1String("C") || QLocale(name).language() != QLocale::C;
}

QString problemWith(const RunOptions &options)
{
    if (!isLocale(options.locale))
        return QLatin1String("--locale: there is no locale \"") + options.locale + QLatin1Char('"');
    if (options.debug && options.unattended)
        return QStringLiteral("--debug needs somebody to look at it, so it does not go with --unattended");
    if (!QFileInfo(options.applicationDirectory).isDir())
        return options.applicationDirectory + QLatin1String(": there is no such application directory");
    if (options.plugins.isEmpty())
        return besideProgram(HOLM_PROVIDERS_FROM_BIN) + QLatin1String(": there is no provider plug-in in it");
    if (options.arguments.isEmpty())
        return QStringLiteral("no widget given; see holm run --help");
    return QString();
}

} // namespace

RunOptions RunOptions::parse(const QStringList &commandLine)
{
    const QCommandLineOption device(QStringLiteral("device"), QString(), QStringLiteral("DIR"));
    const QCommandLineOption app(QStringLiteral("app"), QString(), QStringLiteral("DIR"));
    const QCommandLineOption plugin(QStringLiteral("plugin"), QString(), QStringLiteral("FILE"));
    const QCommandLineOption locale(QStringLiteral("locale"), QString(), QStringLiteral("NAME"));
    const QCommandLineOption vga(QStringLiteral("vga"));
    const QCommandLineOption unattended(QStringLiteral("unattended"));
    const QCommandLineOption robot(QStringLiteral("robot"), QString(), QStringLiteral("FILE"));
    const QCommandLineOption timeout(QStringLiteral("timeout"), QString(), QStringLiteral("S"));
    const QCommandLineOption screenshot(QStringLiteral("screenshot"), QString(), QStringLiteral("F"));
    const QCommandLineOption debug(QStringLiteral("debug"));
    const QCommandLineOption watch(QStringLiteral("watch"));
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")});

    QCommandLineParser parser;
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    parser.addOptions(
        {device, app, plugin, locale, vga, unattended, robot, timeout, screenshot, debug, watch, help});

    RunOptions options;
    if (!parser.parse(QStringList(QStringLiteral("holm run")) + commandLine)) {
        options.error = parser.errorText();
        return options;
    }
    options.help = parser.isSet(help);
    if (options.help)
        return options;

    options.device = parser.value(device);
    options.applicationDirectory =
        parser.isSet(app) ? parser.value(app) : besideProgram(HOLM_APPLICATION_FROM_BIN);
    options.plugins = parser.isSet(plugin) ? parser.values(plugin)
                                           : ProviderPlugins::in(besideProgram(HOLM_PROVIDERS_FROM_BIN));
    options.locale = parser.value(locale);
    options.vga = parser.isSet(vga);
    options.unattended = parser.isSet(unattended);
    options.robot = parser.value(robot);
    options.screenshot = parser.value(screenshot);
    options.debug = parser.isSet(debug);
    options.watch = parser.isSet(watch);
    options.arguments = parser.positionalArguments();

    if (options.unattended)
        options.timeout = unattendedTimeout;
    if (parser.isSet(timeout))
        options.error = readTimeout(parser.value(timeout), options.timeout);
    if (options.error.isEmpty() && parser.isSet(robot))
        options.error = problemWithRobot(options.robot);
    if (options.error.isEmpty())
        options.error = problemWith(options);
    if (options.error.isEmpty())
        options.error = findWidget(options.arguments.takeFirst(), options);
    return options;
}

QString RunOptions::helpText()
{
    return QStringLiteral(
        "Usage: holm run [options] WIDGET [ARG...]\n"
        "\n"
        "Runs a widget: a folder with widget.js and, if it has a face, widget.ui; or one\n"
        "script file. What follows WIDGET is the script's \"args\".\n"
        "\n"
        "  --device DIR     device folder (else $HOLM_DEVICE, else holm/device in the\n"
        "                   user's data directory); made if it is missing\n"
        "  --app DIR        application directory, default the one that came with holm\n"
        "  --plugin FILE    provider plug-in, repeatable; default: those that came with holm\n"
        "  --locale NAME    such as de or zh_CN; default: the system's\n"
        "  --vga            a high-density screen: window and fonts twice as large\n"
        "  --unattended     no screen, nobody to answer: message boxes go to standard error,\n"
        "                   other dialogs are cancelled\n"
        "  --robot FILE     a second script, which answers dialogs by mouse and keys\n"
        "  --timeout S      end after S seconds with status 124 (unattended: 30 unless told)\n"
        "  --screenshot F   save the widget's window as a picture before ending\n"
        "  --debug          open the script debugger\n"
        "  --watch          run again when the widget's files change\n"
        "  -h, --help       show this\n"
        "\n"
        "Status: what the script's quit(code) gave; 0 when the window was closed; 1 on a\n"
        "script error; 2 when the run could not start; 3 when the robot left a\n"
        "dialog open; 124 when the time was over.\n");
}
