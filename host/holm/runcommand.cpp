#include "runcommand.h"

#include "application.h"
#include "exitstatus.h"
#include "providerplugins.h"
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
    QApplication qtApplication(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Application application(options.applicationDirectory, options.vga);
    application.loadTranslation(QLibraryInfo::location(QLibraryInfo::TranslationsPath)
                                + QLatin1String("/qtbase_"));
    KestMainProvider ownProvider(device.path() + QLatin1String("/config.ini"));
    std::optional<UnattendedDialogs> unattendedDialogs;
    if (options.unattended)
        unattendedDialogs.emplace(application.engine());

    ProviderPlugins plugins;
    const QString pluginProblem = plugins.load(options.plugins);
    if (!pluginProblem.isEmpty()) {
        tell(pluginProblem);
        return ExitStatus::cannotStart;
    }

    WidgetRun run(application, options);
    const QString formProblem = run.loadForm();
    if (!formProblem.isEmpty()) {
        tell(formProblem);
        return ExitStatus::cannotStart;
    }
    plugins.start(application, ownProvider);
    const int status = run.execute();
    plugins.stop();
    return status;
}
