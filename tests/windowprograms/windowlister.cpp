// windowlister [--window | --no-application]
//
// Tells what the desktop back end makes of the windows around it, with a window of its own or without, or
// without even an application. Answers each line of standard input with a line of JSON:
//   list           all windows, the uppermost first
//   list WINDOW    the same, but that window closes when the first has been told
//   tell WINDOW    one window
//   focus WINDOW   whether it was not refused
//   close WINDOW   null
//   snapshot WINDOW   its width and height, and the different colours "inside" and at its "edge"
// Its events wait for the end of the input, as they wait for the end of a script.

#include "platform/desktop/desktopwindows.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QSet>
#include <QtCore/QThread>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <iostream>
#include <sstream>

using platform::WindowHandle;

namespace {

constexpr int titleBuffer = 254;
constexpr int fileBuffer = 1024;

QString text(const std::u16string &string)
{
    return QString::fromStdU16String(string);
}

QString number(WindowHandle window)
{
    return QString::number(window);
}

QJsonObject tell(platform::TopLevelWindows &windows, WindowHandle window)
{
    return {{QStringLiteral("window"), number(window)},
            {QStringLiteral("title"), text(windows.title(window, titleBuffer))},
            {QStringLiteral("exists"), windows.exists(window)},
            {QStringLiteral("isVisible"), windows.isVisible(window)},
            {QStringLiteral("style"), static_cast<int>(windows.style(window))},
            {QStringLiteral("parent"), number(windows.parent(window).value_or(0))},
            {QStringLiteral("program"), text(windows.programFile(window, fileBuffer))}};
}

QJsonArray list(platform::TopLevelWindows &windows, WindowHandle closing)
{
    QJsonArray told;
    windows.enumerate([&](WindowHandle window) {
        told.append(tell(windows, window));
        if (closing != 0)
            windows.close(closing);
        while (closing != 0 && windows.exists(closing))
            QThread::msleep(1);
        return true;
    });
    return told;
}

QJsonObject snapshot(platform::TopLevelWindows &windows, WindowHandle window)
{
    const platform::Picture picture = windows.snapshot(window);
    QSet<QString> inside;
    QSet<QString> edge;
    auto pixel = picture.pixels.begin();
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            const bool isEdge = x == 0 || y == 0 || x == picture.width - 1 || y == picture.height - 1;
            (isEdge ? edge : inside).insert(QColor::fromRgba(*pixel++).name(QColor::HexArgb));
        }
    }
    const auto sorted = [](const QSet<QString> &colours) {
        QStringList names = colours.values();
        names.sort();
        return names.join(QLatin1Char(' '));
    };
    return {{QStringLiteral("width"), picture.width},
            {QStringLiteral("height"), picture.height},
            {QStringLiteral("inside"), sorted(inside)},
            {QStringLiteral("edge"), sorted(edge)}};
}

QJsonValue answer(platform::TopLevelWindows &windows, const std::string &operation, WindowHandle window)
{
    if (operation == "list")
        return list(windows, window);
    if (operation == "tell")
        return tell(windows, window);
    if (operation == "focus")
        return windows.setForeground(window);
    if (operation == "snapshot")
        return snapshot(windows, window);
    windows.close(window);
    return {};
}

} // namespace

int main(int argc, char **argv)
{
    const std::string option = argc > 1 ? argv[1] : "";
    std::unique_ptr<QApplication> application;
    if (option != "--no-application")
        application = std::make_unique<QApplication>(argc, argv);
    std::unique_ptr<QWidget> own;
    if (option == "--window") {
        own = std::make_unique<QWidget>();
        own->setWindowTitle(QStringLiteral("Lister"));
        own->show();
        while (!own->windowHandle()->isExposed())
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    platform::DesktopWindows windows{platform::DeviceFolder(QString())};
    for (std::string line; std::getline(std::cin, line);) {
        std::istringstream words(line);
        std::string operation;
        WindowHandle window = 0;
        words >> operation >> window;
        const QJsonArray answers{answer(windows, operation, window)};
        std::cout << QJsonDocument(answers).toJson(QJsonDocument::Compact).constData() << std::endl;
    }
    if (application)
        QApplication::processEvents();
}
