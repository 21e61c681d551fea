#include "platform/desktop/outlook/outlookstore.h"

#include "platform/desktop/desktophiddenwindows.h"
#include "platform/desktop/outlook/appointment.h"
#include "platform/desktop/outlook/contact.h"
#include "platform/desktop/outlook/task.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

namespace platform {

namespace {

QString byIdentifier(const OutlookItem &)
{
    return QString();
}

QString byFileAs(const OutlookItem &item)
{
    return static_cast<const Contact &>(item).texts[static_cast<std::size_t>(ContactText::FileAs)].toLower();
}

struct FolderPlace
{
    QLatin1String name;
    ItemFolder::Kind kind;
};

const std::vector<FolderPlace> &folderPlaces()
{
    static const std::vector<FolderPlace> places = {
        {QLatin1String("calendar"), {OutlookFolder::Calendar, ".ics", readAppointments, byIdentifier}},
        {QLatin1String("contacts"), {OutlookFolder::Contacts, ".vcf", readContacts, byFileAs}},
        {QLatin1String("tasks"), {OutlookFolder::Tasks, ".ics", readTasks, byIdentifier}},
    };
    return places;
}

} // namespace

OutlookStore::OutlookStore(const DeviceFolder &device, DesktopHiddenWindows &windows)
    : m_device(device)
    , m_windows(windows)
{
}

QString OutlookStore::open()
{
    const QString prefix = m_device.path() + QLatin1Char('/');
    for (const FolderPlace &place : folderPlaces()) {
        const QString path = prefix + place.name;
        if (!QDir().mkpath(path))
            return path + QLatin1String(": the folder cannot be made");
        m_folders[place.kind.folder] =
            std::make_unique<ItemFolder>(QFile::encodeName(path), place.kind, m_identifiers);
    }
    return m_identifiers.open(prefix + QLatin1String("items.db")) ? QString() : m_identifiers.problem();
}

ItemFolder *OutlookStore::folder(OutlookFolder folder)
{
    const auto found = m_folders.find(folder);
    return found != m_folders.end() ? found->second.get() : nullptr;
}

void OutlookStore::setNotifications(OutlookFolder folder, bool areOn)
{
    const auto post = [this, folder](std::uint32_t message, std::int32_t id) {
        if (m_window != 0)
            m_windows.post(m_window,
                           {message, static_cast<std::uint64_t>(id), static_cast<std::int64_t>(folder)});
    };
    m_folders.at(folder)->setListener(areOn ? ItemTable::Listener(post) : nullptr);
}

} // namespace platform
