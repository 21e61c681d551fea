#include "device/s2pcontrol.h"

#include "platform/platform.h"
#include "platform/registryvalue.h"
#include "platform/shell.h"
#include "platform/toplevelwindows.h"
#include "provider/kestcommandprovider.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>
#include <QtWidgets/QMessageBox>

#include <algorithm>
#include <iterator>
#include <mutex>
#include <optional>

namespace {

struct Command
{
    const char *text;
    std::uint64_t identifier;
    bool starts; ///< S2P, if it does not run
};

/// S2P toggles between playing and pausing.
constexpr Command commands[] = {
    {"play", 301, true}, {"pause", 301, true}, {"next", 302, false}, {"prev", 303, false}};

/// So that two commands cannot both start S2P.
std::mutex commandMutex;

QString findProgram(const QString &applicationPath)
{
    platform::Shell &shell = platform::current().shell();
    QStringList places{QStringLiteral("/Windows/s2p.lnk"), applicationPath + QLatin1String("s2p.lnk")};
    if (const auto programFiles = shell.specialFolder(platform::SpecialFolder::ProgramFiles, false))
        places.prepend(QString::fromStdU16String(*programFiles) + QLatin1String("/S2P/s2p.exe"));
    const auto found = std::find_if(places.cbegin(), places.cend(), [&shell](const QString &place) {
        return shell.exists(place.toStdU16String());
    });
    return found != places.cend() ? *found : QString();
}

/// Empty if there is no such value.
QString textOf(platform::RegistryKey &key, const std::u16string &name)
{
    return QString::fromStdU16String(platform::readText(key, name).value_or(std::u16string()));
}

bool isZero(platform::RegistryKey &key, const std::u16string &name)
{
    return key.read(name, sizeof(std::uint32_t)) == platform::RegistryBytes(sizeof(std::uint32_t), 0);
}

} // namespace

void S2pControl::command(const QString &text, const QString &applicationPath)
{
    const auto command = std::find_if(std::begin(commands), std::end(commands),
                                      [&text](const Command &c) { return text == QLatin1String(c.text); });
    if (command == std::end(commands))
        return;

    const std::lock_guard<std::mutex> lock(commandMutex);
    platform::TopLevelWindows &windows = platform::current().windows();
    if (const auto window = windows.find(u"S2P"))
        windows.post(*window, {platform::commandMessage, command->identifier, 0});
    else if (command->starts)
        start(applicationPath);
}

void S2pControl::start(const QString &applicationPath)
{
    if (m_program.isEmpty())
        m_program = findProgram(applicationPath);
    if (m_program.isEmpty()) {
        QMessageBox::critical(
            nullptr, QCoreApplication::translate("KestCommandProvider", "Error"),
            QCoreApplication::translate("KestCommandProvider", "Cannot find S2P application."));
        return;
    }
    KestCommandProvider::launch(m_program, QString());
}

S2pControl::Status S2pControl::status()
{
    const auto opening =
        platform::current().registry().open(platform::RegistryRoot::CurrentUser, u"Software\\A_C\\S2P");
    if (!opening.key)
        return {};
    Status status;
    status.album = textOf(*opening.key, u"CurrentAlbum");
    status.title = textOf(*opening.key, u"CurrentTitle");
    status.isPlaying = isZero(*opening.key, u"Status");
    return status;
}
