#include "platform/desktop/outlook/desktopoutlook.h"

#include "platform/desktop/outlook/itemcollection.h"
#include "platform/desktop/outlook/items.h"
#include "platform/desktop/outlook/outlookstore.h"
#include "platform/desktop/outlook/variantdate.h"
#include "platform/desktop/terminaltext.h"

namespace platform {

namespace {

using StorePointer = std::shared_ptr<OutlookStore>;

/// The properties of a folder.
class FolderBundle : public IItem
{
public:
    FolderBundle(StorePointer store, OutlookFolder folder)
        : m_store(std::move(store))
        , m_folder(folder)
    {
    }

    bool SetProps(std::uint32_t, const std::vector<OutlookProperty> &properties) override
    {
        if (properties.size() != 1 || properties.front().id != folderNotifications)
            return false;
        const std::int32_t changes = properties.front().value;
        if (changes != 0 && changes != remoteChanges)
            return false;
        m_store->setNotifications(m_folder, changes == remoteChanges);
        return true;
    }

    std::optional<std::int32_t> get_Oid() override { return std::nullopt; }
    std::optional<std::vector<std::uint8_t>> OpenProperty(OutlookStream) override { return std::nullopt; }

private:
    const StorePointer m_store;
    const OutlookFolder m_folder;
};

class DesktopFolder : public IFolder
{
public:
    DesktopFolder(StorePointer store, OutlookFolder folder)
        : m_store(std::move(store))
        , m_folder(folder)
    {
    }

    std::unique_ptr<IPOutlookItemCollection> get_Items() override
    {
        ItemList items = m_store->folder(m_folder)->items();
        return items ? std::make_unique<ItemCollection>(m_folder, std::move(items)) : nullptr;
    }

    std::unique_ptr<IItem> QueryItem() override { return std::make_unique<FolderBundle>(m_store, m_folder); }

private:
    const StorePointer m_store;
    const OutlookFolder m_folder;
};

class DesktopOutlookApp : public IPOutlookApp
{
public:
    explicit DesktopOutlookApp(StorePointer store)
        : m_store(std::move(store))
    {
    }
    ~DesktopOutlookApp() override { m_store->endSession(); }
    Q_DISABLE_COPY_MOVE(DesktopOutlookApp)

    bool Logon(WindowHandle window) override
    {
        m_store->beginSession(window);
        return true;
    }

    bool Logoff() override
    {
        m_store->endSession();
        return true;
    }

    std::unique_ptr<IFolder> GetDefaultFolder(OutlookFolder folder) override
    {
        return m_store->folder(folder) ? std::make_unique<DesktopFolder>(m_store, folder) : nullptr;
    }

    std::unique_ptr<IPOutlookItem> GetItemFromOid(std::int32_t oid) override
    {
        const std::optional<OutlookFolder> folder = m_store->folderOf(oid);
        ItemFolder *items = folder ? m_store->folder(*folder) : nullptr;
        const StoredItem *item = items ? items->item(oid) : nullptr;
        return item ? makeItem(*folder, {item, std::nullopt}) : nullptr;
    }

    std::optional<SystemTime> VariantTimeToSystemTime(VariantDate date) override
    {
        return toSystemTime(date);
    }

    std::optional<VariantDate> SystemTimeToVariantTime(const SystemTime &time) override
    {
        return toVariantDate(time);
    }

private:
    const StorePointer m_store;
};

} // namespace

DesktopOutlook::DesktopOutlook(const DeviceFolder &device, DesktopHiddenWindows &windows)
    : m_device(device)
    , m_windows(windows)
{
}

std::unique_ptr<IPOutlookApp> DesktopOutlook::createApplication()
{
    auto store = std::make_shared<OutlookStore>(m_device, m_windows);
    const QString problem = store->open();
    if (problem.isEmpty())
        return std::make_unique<DesktopOutlookApp>(std::move(store));
    qWarning("%s", qUtf8Printable(onOneLine(problem)));
    return nullptr;
}

} // namespace platform
