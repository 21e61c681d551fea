#include "platform/windows/outlook/outlookitems.h"

#include "platform/windows/outlook/pimcontact.h"

#include <iterator>

namespace platform {

namespace {

using TextGetter = HRESULT (STDMETHODCALLTYPE pimstore::IContact::*)(BSTR *);

// In the order of ContactText.
constexpr TextGetter textGetters[] = {
    &pimstore::IContact::get_BusinessFaxNumber,
    &pimstore::IContact::get_CompanyName,
    &pimstore::IContact::get_Department,
    &pimstore::IContact::get_Email1Address,
    &pimstore::IContact::get_MobileTelephoneNumber,
    &pimstore::IContact::get_OfficeLocation,
    &pimstore::IContact::get_PagerNumber,
    &pimstore::IContact::get_BusinessTelephoneNumber,
    &pimstore::IContact::get_JobTitle,
    &pimstore::IContact::get_HomeTelephoneNumber,
    &pimstore::IContact::get_Email2Address,
    &pimstore::IContact::get_Spouse,
    &pimstore::IContact::get_Email3Address,
    &pimstore::IContact::get_Home2TelephoneNumber,
    &pimstore::IContact::get_HomeFaxNumber,
    &pimstore::IContact::get_CarTelephoneNumber,
    &pimstore::IContact::get_AssistantName,
    &pimstore::IContact::get_AssistantTelephoneNumber,
    &pimstore::IContact::get_Children,
    &pimstore::IContact::get_Categories,
    &pimstore::IContact::get_WebPage,
    &pimstore::IContact::get_Business2TelephoneNumber,
    &pimstore::IContact::get_Title,
    &pimstore::IContact::get_FirstName,
    &pimstore::IContact::get_MiddleName,
    &pimstore::IContact::get_LastName,
    &pimstore::IContact::get_Suffix,
    &pimstore::IContact::get_HomeAddressStreet,
    &pimstore::IContact::get_HomeAddressCity,
    &pimstore::IContact::get_HomeAddressState,
    &pimstore::IContact::get_HomeAddressPostalCode,
    &pimstore::IContact::get_HomeAddressCountry,
    &pimstore::IContact::get_OtherAddressStreet,
    &pimstore::IContact::get_OtherAddressCity,
    &pimstore::IContact::get_OtherAddressState,
    &pimstore::IContact::get_OtherAddressPostalCode,
    &pimstore::IContact::get_OtherAddressCountry,
    &pimstore::IContact::get_BusinessAddressStreet,
    &pimstore::IContact::get_BusinessAddressCity,
    &pimstore::IContact::get_BusinessAddressState,
    &pimstore::IContact::get_BusinessAddressPostalCode,
    &pimstore::IContact::get_BusinessAddressCountry,
    &pimstore::IContact::get_RadioTelephoneNumber,
    &pimstore::IContact::get_FileAs,
    &pimstore::IContact::get_Body,
    &pimstore::IContact::get_YomiCompanyName,
    &pimstore::IContact::get_YomiFirstName,
    &pimstore::IContact::get_YomiLastName,
};
static_assert(std::size(textGetters) == contactTextCount);

/// An object identifier, which is never 0.
template <typename Interface>
std::optional<std::int32_t> oidOf(Interface &object)
{
    const std::optional<LONG> oid = valueOf(object, &Interface::get_Oid);
    return oid && *oid != 0 ? std::optional<std::int32_t>(*oid) : std::nullopt;
}

/// The properties of a folder.
class FolderBundle : public IItem
{
public:
    FolderBundle(OutlookSessionPointer session, ComPointer<pimstore::IItem> item)
        : m_session(std::move(session))
        , m_item(std::move(item))
    {
    }

    bool SetProps(std::uint32_t flags, const std::vector<OutlookProperty> &properties) override
    {
        if (properties.size() > USHRT_MAX)
            return false;
        std::vector<pimstore::PropertyValue> values;
        for (const OutlookProperty &property : properties) {
            pimstore::PropertyValue value{property.id, property.length, property.flags, {}};
            value.value.number = property.value;
            values.push_back(value);
        }
        return SUCCEEDED(m_item->SetProps(flags, static_cast<WORD>(values.size()), values.data()));
    }

    std::optional<std::int32_t> get_Oid() override { return std::nullopt; }

    // The number by which the store knows a contact's photo is not known, so that no item has one.
    std::optional<std::vector<std::uint8_t>> OpenProperty(OutlookStream) override { return std::nullopt; }

protected:
    pimstore::IItem &item() const { return *m_item; }

private:
    const OutlookSessionPointer m_session; // first, so that it goes last
    const ComPointer<pimstore::IItem> m_item;
};

/// The properties of an item.
class ItemBundle : public FolderBundle
{
public:
    using FolderBundle::FolderBundle;

    std::optional<std::int32_t> get_Oid() override { return oidOf(item()); }
};

template <typename Bundle>
std::unique_ptr<IItem> makeBundle(const OutlookSessionPointer &session, IUnknown &object)
{
    ComPointer<pimstore::IItem> item = query<pimstore::IItem>(object);
    return item ? std::make_unique<Bundle>(session, std::move(item)) : nullptr;
}

/// What items of all kinds have in common.
template <typename Contract, typename Interface>
class WindowsItem : public Contract
{
public:
    WindowsItem(OutlookSessionPointer session, ComPointer<Interface> item)
        : m_session(std::move(session))
        , m_item(std::move(item))
    {
    }

    std::unique_ptr<IItem> QueryItem() override { return makeItemBundle(m_session, *m_item); }

protected:
    Interface &item() const { return *m_item; }

    std::optional<std::u16string> text(HRESULT (STDMETHODCALLTYPE Interface::*get)(BSTR *)) const
    {
        return m_session->textOf(*m_item, get);
    }

private:
    const OutlookSessionPointer m_session; // first, so that it goes last
    const ComPointer<Interface> m_item;
};

class WindowsAppointment : public WindowsItem<IAppointment, pimstore::IAppointment>
{
public:
    using WindowsItem::WindowsItem;

    std::optional<bool> get_IsRecurring() override
    {
        const auto isRecurring = valueOf(item(), &pimstore::IAppointment::get_IsRecurring);
        return isRecurring ? std::optional(*isRecurring != VARIANT_FALSE) : std::nullopt;
    }
    std::optional<std::u16string> get_Subject() override
    {
        return text(&pimstore::IAppointment::get_Subject);
    }
    std::optional<VariantDate> get_Start() override
    {
        return valueOf(item(), &pimstore::IAppointment::get_Start);
    }
};

class WindowsTask : public WindowsItem<ITask, pimstore::ITask>
{
public:
    using WindowsItem::WindowsItem;

    std::optional<std::u16string> get_Subject() override { return text(&pimstore::ITask::get_Subject); }
    std::optional<VariantDate> get_StartDate() override
    {
        return valueOf(item(), &pimstore::ITask::get_StartDate);
    }
    std::optional<VariantDate> get_DueDate() override
    {
        return valueOf(item(), &pimstore::ITask::get_DueDate);
    }
};

class WindowsContact : public WindowsItem<IContact, pimstore::IContact>
{
public:
    using WindowsItem::WindowsItem;

    std::optional<std::u16string> get_Text(ContactText property) override
    {
        return text(textGetters[static_cast<std::size_t>(property)]);
    }
    std::optional<VariantDate> get_Date(ContactDate property) override
    {
        return valueOf(item(),
                       property == ContactDate::Birthday ? &pimstore::IContact::get_Birthday
                                                         : &pimstore::IContact::get_Anniversary);
    }
    std::optional<std::int32_t> get_Oid() override { return oidOf(item()); }
};

/// Null if the item is none of that kind.
template <typename Item, typename Interface>
std::unique_ptr<IPOutlookItem> makeKind(const OutlookSessionPointer &session, IUnknown &object)
{
    ComPointer<Interface> item = query<Interface>(object);
    return item ? std::make_unique<Item>(session, std::move(item)) : nullptr;
}

} // namespace

std::unique_ptr<IPOutlookItem> makeItem(const OutlookSessionPointer &session, ComPointer<IDispatch> item)
{
    if (!item)
        return nullptr;
    for (const auto make :
         {makeKind<WindowsAppointment, pimstore::IAppointment>, makeKind<WindowsTask, pimstore::ITask>,
          makeKind<WindowsContact, pimstore::IContact>}) {
        if (std::unique_ptr<IPOutlookItem> made = make(session, *item))
            return made;
    }
    return nullptr;
}

std::unique_ptr<IItem> makeFolderBundle(const OutlookSessionPointer &session, IUnknown &folder)
{
    return makeBundle<FolderBundle>(session, folder);
}

std::unique_ptr<IItem> makeItemBundle(const OutlookSessionPointer &session, IUnknown &item)
{
    return makeBundle<ItemBundle>(session, item);
}

} // namespace platform
