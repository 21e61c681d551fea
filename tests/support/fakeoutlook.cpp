#include "fakeoutlook.h"

#include "platform/desktop/outlook/variantdate.h"

using platform::OutlookFolder;
using platform::VariantDate;

namespace {

std::u16string toText(const QString &text)
{
    return text.toStdU16String();
}

class Bundle : public platform::IItem
{
public:
    Bundle(FakeOutlook &store, const QByteArray &photo, const QString &name)
        : m_store(store)
        , m_photo(photo)
        , m_name(name)
    {
    }

    bool SetProps(std::uint32_t flags, const std::vector<platform::OutlookProperty> &properties) override
    {
        for (const platform::OutlookProperty &property : properties)
            m_store.calls.append(QStringLiteral("%1: set %2 %3 %4 %5 %6")
                                     .arg(m_name)
                                     .arg(flags)
                                     .arg(property.id, 0, 16)
                                     .arg(property.length)
                                     .arg(property.flags)
                                     .arg(property.value));
        return true;
    }
    std::optional<std::int32_t> get_Oid() override { return std::nullopt; }
    std::optional<std::vector<std::uint8_t>> OpenProperty(platform::OutlookStream) override
    {
        if (m_photo.isEmpty())
            return std::nullopt;
        return std::vector<std::uint8_t>(m_photo.cbegin(), m_photo.cend());
    }

private:
    FakeOutlook &m_store;
    const QByteArray m_photo;
    const QString m_name;
};

template <class Interface>
class Item : public Interface
{
public:
    Item(FakeOutlook &store, const FakeItem &data)
        : m_store(store)
        , m_data(data)
    {
    }

    std::unique_ptr<platform::IItem> QueryItem() override
    {
        return std::make_unique<Bundle>(m_store, m_data.photo, m_data.name);
    }

protected:
    FakeOutlook &m_store;
    const FakeItem m_data;
};

class AppointmentItem : public Item<platform::IAppointment>
{
public:
    using Item::Item;
    std::optional<bool> get_IsRecurring() override { return m_data.isRecurring; }
    std::optional<std::u16string> get_Subject() override { return toText(m_data.name); }
    std::optional<VariantDate> get_Start() override { return m_data.start; }
};

class TaskItem : public Item<platform::ITask>
{
public:
    using Item::Item;
    std::optional<std::u16string> get_Subject() override { return toText(m_data.name); }
    std::optional<VariantDate> get_StartDate() override { return m_data.start; }
    std::optional<VariantDate> get_DueDate() override { return m_data.due; }
};

class ContactItem : public Item<platform::IContact>
{
public:
    using Item::Item;
    std::optional<std::u16string> get_Text(platform::ContactText property) override
    {
        return toText(property == platform::ContactText::FileAs ? m_data.name : m_data.texts.value(property));
    }
    std::optional<VariantDate> get_Date(platform::ContactDate property) override
    {
        return property == platform::ContactDate::Birthday ? m_data.start : m_data.due;
    }
    std::optional<std::int32_t> get_Oid() override { return m_data.oid; }
};

std::unique_ptr<platform::IPOutlookItem> makeItem(FakeOutlook &store, OutlookFolder folder,
                                                  const FakeItem &data)
{
    if (folder == OutlookFolder::Calendar)
        return std::make_unique<AppointmentItem>(store, data);
    if (folder == OutlookFolder::Tasks)
        return std::make_unique<TaskItem>(store, data);
    return std::make_unique<ContactItem>(store, data);
}

const std::vector<FakeItem> &itemsOf(const FakeOutlook &store, OutlookFolder folder)
{
    if (folder == OutlookFolder::Calendar)
        return store.appointments;
    return folder == OutlookFolder::Tasks ? store.tasks : store.contacts;
}

class Collection : public platform::IPOutlookItemCollection
{
public:
    Collection(FakeOutlook &store, OutlookFolder folder, std::optional<int> count)
        : m_store(store)
        , m_folder(folder)
        , m_count(count)
    {
    }

    std::optional<int> get_Count() override
    {
        m_store.calls.append(QStringLiteral("count"));
        return m_count ? *m_count : static_cast<int>(itemsOf(m_store, m_folder).size());
    }
    std::unique_ptr<platform::IPOutlookItem> Item(int index) override
    {
        const std::vector<FakeItem> &items = itemsOf(m_store, m_folder);
        const auto place = static_cast<std::size_t>(index) - 1;
        if (place >= items.size() || !items[place].isFetchable)
            return nullptr;
        return makeItem(m_store, m_folder, items[place]);
    }
    std::unique_ptr<platform::IPOutlookItemCollection> Restrict(const std::u16string &restriction) override
    {
        m_store.calls.append(QStringLiteral("restrict ") + QString::fromStdU16String(restriction));
        return std::make_unique<Collection>(m_store, m_folder, m_store.matchingCount);
    }
    bool Sort(const std::u16string &property, bool descending) override
    {
        m_store.calls.append(
            QStringLiteral("sort %1 %2").arg(QString::fromStdU16String(property)).arg(descending));
        return true;
    }
    bool put_IncludeRecurrences(bool include) override
    {
        m_store.calls.append(QStringLiteral("recurrences %1").arg(include));
        return true;
    }

private:
    FakeOutlook &m_store;
    const OutlookFolder m_folder;
    const std::optional<int> m_count;
};

class Folder : public platform::IFolder
{
public:
    Folder(FakeOutlook &store, OutlookFolder folder)
        : m_store(store)
        , m_folder(folder)
    {
    }

    std::unique_ptr<platform::IPOutlookItemCollection> get_Items() override
    {
        return std::make_unique<Collection>(m_store, m_folder, std::nullopt);
    }
    std::unique_ptr<platform::IItem> QueryItem() override
    {
        return std::make_unique<Bundle>(m_store, QByteArray(), QString::number(static_cast<int>(m_folder)));
    }

private:
    FakeOutlook &m_store;
    const OutlookFolder m_folder;
};

class App : public platform::IPOutlookApp
{
public:
    explicit App(FakeOutlook &store)
        : m_store(store)
    {
    }
    ~App() override { m_store.calls.append(QStringLiteral("release")); }

    bool Logon(platform::WindowHandle window) override
    {
        m_store.window = window;
        return false; // which nobody is to mind
    }
    bool Logoff() override
    {
        m_store.calls.append(QStringLiteral("logoff"));
        return true;
    }
    std::unique_ptr<platform::IFolder> GetDefaultFolder(OutlookFolder folder) override
    {
        return m_store.hasFolders ? std::make_unique<Folder>(m_store, folder) : nullptr;
    }
    std::unique_ptr<platform::IPOutlookItem> GetItemFromOid(std::int32_t oid) override
    {
        for (const OutlookFolder folder : {OutlookFolder::Contacts, OutlookFolder::Tasks}) {
            for (const FakeItem &item : itemsOf(m_store, folder)) {
                if (item.oid == oid)
                    return makeItem(m_store, folder, item);
            }
        }
        return nullptr;
    }
    std::optional<platform::SystemTime> VariantTimeToSystemTime(VariantDate date) override
    {
        return platform::toSystemTime(date);
    }
    std::optional<VariantDate> SystemTimeToVariantTime(const platform::SystemTime &time) override
    {
        return platform::toVariantDate(time);
    }

private:
    FakeOutlook &m_store;
};

} // namespace

std::unique_ptr<platform::IPOutlookApp> FakeOutlook::createApplication()
{
    return isThere ? std::make_unique<App>(*this) : nullptr;
}

QStringList FakeOutlook::takeCalls()
{
    return std::exchange(calls, {});
}

platform::SystemTime FakeClock::localTime()
{
    return platform::toSystemTime(platform::toVariantDate(now)).value_or(platform::SystemTime());
}
