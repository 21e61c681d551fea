#include "platform/desktop/outlook/items.h"

#include "platform/desktop/outlook/contact.h"
#include "platform/desktop/outlook/task.h"

namespace platform {

namespace {

/// The properties of an item.
class ItemBundle : public IItem
{
public:
    explicit ItemBundle(const StoredItem &stored)
        : m_stored(stored)
    {
    }

    bool SetProps(std::uint32_t, const std::vector<OutlookProperty> &) override { return false; }

    std::optional<std::int32_t> get_Oid() override { return m_stored.id; }

    std::optional<std::vector<std::uint8_t>> OpenProperty(OutlookStream stream) override
    {
        const bool isContact = dynamic_cast<const Contact *>(m_stored.item.get()) != nullptr;
        if (stream != OutlookStream::Picture || !isContact)
            return std::nullopt;
        const FileContent content = FileContent::read(m_stored.path);
        const QByteArray photo = readContactPhoto(content.bytes, m_stored.index);
        if (photo.isEmpty())
            return std::nullopt;
        return std::vector<std::uint8_t>(photo.cbegin(), photo.cend());
    }

private:
    const StoredItem m_stored;
};

/// What items of all kinds have in common.
template <typename Interface, typename Record>
class DesktopItem : public Interface
{
public:
    explicit DesktopItem(const ItemEntry &entry)
        : m_stored(*entry.stored)
    {
    }

    std::unique_ptr<IItem> QueryItem() override { return std::make_unique<ItemBundle>(m_stored); }

protected:
    const Record &record() const { return static_cast<const Record &>(*m_stored.item); }
    std::int32_t id() const { return m_stored.id; }

private:
    const StoredItem m_stored;
};

class DesktopAppointment : public DesktopItem<IAppointment, Appointment>
{
public:
    explicit DesktopAppointment(const ItemEntry &entry)
        : DesktopItem(entry)
        , m_occurrence(entry.occurrence ? *entry.occurrence : record().first())
    {
    }

    std::optional<bool> get_IsRecurring() override { return record().isRecurring(); }
    std::optional<std::u16string> get_Subject() override { return m_occurrence.subject.toStdU16String(); }
    std::optional<VariantDate> get_Start() override { return m_occurrence.start; }

private:
    const Occurrence m_occurrence;
};

class DesktopTask : public DesktopItem<ITask, Task>
{
public:
    using DesktopItem::DesktopItem;

    std::optional<std::u16string> get_Subject() override { return record().subject.toStdU16String(); }
    std::optional<VariantDate> get_StartDate() override { return record().startDate; }
    std::optional<VariantDate> get_DueDate() override { return record().dueDate; }
};

class DesktopContact : public DesktopItem<IContact, Contact>
{
public:
    using DesktopItem::DesktopItem;

    std::optional<std::u16string> get_Text(ContactText property) override
    {
        return record().texts.at(static_cast<std::size_t>(property)).toStdU16String();
    }

    std::optional<VariantDate> get_Date(ContactDate property) override
    {
        return property == ContactDate::Birthday ? record().birthday : record().anniversary;
    }

    std::optional<std::int32_t> get_Oid() override { return id(); }
};

} // namespace

std::unique_ptr<IPOutlookItem> makeItem(OutlookFolder folder, const ItemEntry &entry)
{
    switch (folder) {
    case OutlookFolder::Calendar:
        return std::make_unique<DesktopAppointment>(entry);
    case OutlookFolder::Tasks:
        return std::make_unique<DesktopTask>(entry);
    case OutlookFolder::Contacts:
        return std::make_unique<DesktopContact>(entry);
    }
    return nullptr;
}

} // namespace platform
