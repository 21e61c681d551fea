#include "runcommand.h"

#include "application.h"
#include "devicescreen.h"
#include "exitstatus.h"
#include "modaldialogs.h"
#include "providerplugins.h"
#include "robot.h"
#include "unattendeddialogs.h"
#include "widgetrun.h"

#include <kestmainprovider/kestmainprovider.h>
#include <platform/desktop/devicefolder.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLibraryInfo>
#include <QtCore/QLocale>
#include <QtWidgets/QApplication>

#include <iostream>
#include <optional>

namespace {

void tell(const QString &problem)
{
    std::cerr << "holm: " << problem.toStdString() << std::endl;
}

bool hasScreen()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
        || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

void prepareEnvironment(const RunOptions &options)
{
    if (options.unattended)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // As fonts are measured in points, they double with the rest.
    if (options.vga)
        qputenv("QT_FONT_DPI", "192");
    // For programs that a widget starts, such as the sample music player.
    qputenv("HOLM", QFile::encodeName(QFileInfo(QStringLiteral("/proc/self/exe")).canonicalFilePath()));
    // For the plug-in, and for programs that a widget starts.
    if (!options.device.isEmpty())
        qputenv(platform::DeviceFolder::environmentVariable,
                platform::DeviceFolder(options.device).path().toLocal8Bit());
    if (!options.locale.isEmpty())
        QLocale::setDefault(QLocale(options.locale));
}

} // namespace

int runWidget(int &argc, char **argv, const RunOptions &options)
{
    prepareEnvironment(options);
    if (!hasScreen()) {
        tell(QStringLiteral("there is no display; --unattended runs without one"));
        return ExitStatus::cannotStart;
    }
    const auto device = platform::DeviceFolder::current();
    const QString deviceProblem = device.create();
    if (!deviceProblem.isEmpty()) {
        tell(deviceProblem);
        return ExitStatus::cannotStart;
    }

    QApplication::setStyle(QStringLiteral("fusion"));
    // A robot finds its way about Qt's own only.
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs, !options.robot.isEmpty());
    QApplication::setAttribute(Qt::AA_DontUseNativeMenuBar, !options.robot.isEmpty());
    QApplication qtApplication(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Application application(options.applicationDirectory, options.vga);
    application.loadTranslation(QLibraryInfo::location(QLibraryInfo::TranslationsPath)
                                + QLatin1String("/qtbase_"));
    application.loadTranslation(application.applicationPath() + QLatin1String("language/kestmainprovider_"));
    KestMainProvider ownProvider(device.path() + QLatin1String("/config.ini"));
    const ModalDialogs dialogs(application.engine());
    std::optional<Robot> robot;
    if (!options.robot.isEmpty())
        robot.emplace(application.engine(), dialogs, options.robot);
    std::optional<UnattendedDialogs> unattendedDialogs;
    if (options.unattended)
        unattendedDialogs.emplace(
            dialogs, robot ? UnattendedDialogs::Closing::Others : UnattendedDialogs::Closing::Own);

    ProviderPlugins plugins;
    const QString pluginProblem = plugins.load(options.plugins);
    if (!pluginProblem.isEmpty()) {
        tell(pluginProblem);
        return ExitStatus::cannotStart;
    }

    WidgetRun run(application, options, robot ? &*robot : nullptr);
    const QString formProblem = run.loadForm();
    if (!formProblem.isEmpty()) {
        tell(formProblem);
        return ExitStatus::cannotStart;
    }
    const DeviceScreen screen(options.vga, run.window());
    plugins.start(application, ownProvider);
    const int status = run.execute();
    plugins.stop();
    return status;
}
