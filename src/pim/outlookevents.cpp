#include "orvanecore/functionarguments.h"
#include "orvanecore/iapplication.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

#include <QtCore/QMutexLocker>

#include <algorithm>
#include <iterator>

using platform::OutlookFolder;

namespace {

struct FolderEvent
{
    const char *folder; ///< as scripts name it, in exactly these letters
    OutlookFolder number;
    const char *event;
};

const FolderEvent folderEvents[] = {
    {"Contacts", OutlookFolder::Contacts, "POOMContactsChanged"},
    {"Tasks", OutlookFolder::Tasks, "POOMTasksChanged"},
    {"Appointments", OutlookFolder::Calendar, "POOMAppointmentsChanged"},
};

/// The place in the table of the first entry for which @p holds; nothing if there is none.
template <class Condition>
std::optional<std::size_t> findFolder(Condition holds)
{
    const FolderEvent *const found = std::find_if(std::begin(folderEvents), std::end(folderEvents), holds);
    if (found == std::end(folderEvents))
        return std::nullopt;
    return static_cast<std::size_t>(found - std::begin(folderEvents));
}

std::optional<std::size_t> findFolder(const QString &name)
{
    return findFolder([&name](const FolderEvent &entry) { return name == QLatin1String(entry.folder); });
}

/// An unknown folder has the event with the empty name.
QString eventOf(std::optional<std::size_t> folder)
{
    return folder ? QString::fromLatin1(folderEvents[*folder].event) : QString();
}

bool isChange(std::uint32_t message)
{
    namespace Message = platform::OutlookMessage;
    return message == Message::itemCreated || message == Message::itemChanged
        || message == Message::itemDeleted;
}

} // namespace

void KestCommandProvider::poomEventSuscribe(FunctionArguments *arguments)
{
    const QMutexLocker lock(&m_poomMutex);
    const bool isValid = argumentsMatch(
        *arguments, {3, 3, {ArgumentType::QObject, ArgumentType::Function, ArgumentType::String}});
    if (!checkOutlookCall("poomEventSuscribe", isValid))
        return;

    const std::optional<std::size_t> folder = findFolder(arguments->argument(2).toString());
    if (folder && ++m_outlookSubscriptions.at(*folder) == 1)
        setOutlookNotifications(folderEvents[*folder].number, true);
    m_application->subscribeEvent(arguments->argument(0), arguments->argument(1), eventOf(folder));
}

void KestCommandProvider::poomEventUnSuscribe(FunctionArguments *arguments)
{
    const QMutexLocker lock(&m_poomMutex);
    const bool isValid = argumentsMatch(*arguments, {2, 2, {ArgumentType::QObject, ArgumentType::String}});
    if (!checkOutlookCall("poomEventUnSuscribe", isValid))
        return;

    const std::optional<std::size_t> folder = findFolder(arguments->argument(1).toString());
    if (folder && m_outlookSubscriptions.at(*folder) > 0 && --m_outlookSubscriptions.at(*folder) == 0)
        setOutlookNotifications(folderEvents[*folder].number, false);
    m_application->unsubscribeEvent(arguments->argument(0), eventOf(folder));
}

void KestCommandProvider::setOutlookNotifications(OutlookFolder number, bool on)
{
    const std::unique_ptr<platform::IFolder> folder = m_outlook->GetDefaultFolder(number);
    const std::unique_ptr<platform::IItem> item = folder ? folder->QueryItem() : nullptr;
    if (item)
        item->SetProps(0, {{platform::folderNotifications, 0, 0, on ? platform::remoteChanges : 0}});
}

/// Fires the event of a change in the store; false for any other message.
bool KestCommandProvider::raiseOutlookEvent(const platform::WindowMessage &message)
{
    if (!isChange(message.message))
        return false;
    const std::optional<std::size_t> folder = findFolder([&message](const FolderEvent &entry) {
        return message.lParam == static_cast<std::int64_t>(entry.number);
    });
    // Scripts are told 0 whatever the kind of change is.
    m_application->fireEvent(eventOf(folder), {0, static_cast<qint32>(message.wParam)});
    return true;
}
