#pragma once

#include "platform/desktop/devicefolder.h"
#include "platform/desktop/outlook/itemfolder.h"
#include "platform/desktop/outlook/itemidentifiers.h"

namespace platform {

class DesktopHiddenWindows;

/// The three folders of one connection, and where their changes are told.
class OutlookStore
{
public:
    /// Changes are posted to windows of @p windows, until endSession().
    OutlookStore(const DeviceFolder &device, DesktopHiddenWindows &windows);

    /// Makes what is missing. Empty, or why it cannot be opened, in plain words.
    QString open();

    void beginSession(WindowHandle window) { m_window = window; }
    void endSession() { m_window = 0; }

    /// Null if there is no such folder.
    ItemFolder *folder(OutlookFolder folder);

    void setNotifications(OutlookFolder folder, bool areOn);

    /// The folder of an item. Nothing if there never was such an item.
    std::optional<OutlookFolder> folderOf(std::int32_t id) { return m_identifiers.folderOf(id); }

private:
    const DeviceFolder m_device;
    DesktopHiddenWindows &m_windows;
    WindowHandle m_window = 0;
    ItemIdentifiers m_identifiers;
    std::map<OutlookFolder, std::unique_ptr<ItemFolder>> m_folders;
};

} // namespace platform
