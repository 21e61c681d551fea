#pragma once

#include <windows.h>

#include <oaidl.h>

// The interfaces of Pocket Outlook as its in-process COM server has them. The order of the methods is that of
// the tables of functions. Those that are not called stand without their parameters.

#pragma GCC diagnostic push
// Objects of COM end with their last reference, so its interfaces have no destructors.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace platform::pimstore {

constexpr CLSID applicationClass{
    0x05058F23, 0x20BE, 0x11D2, {0x8F, 0x18, 0x00, 0x00, 0xF8, 0x7A, 0x43, 0x35}};

/// A property of a folder or item, and its value (CEPROPVAL).
struct PropertyValue
{
    DWORD id;
    WORD length;
    WORD flags;
    union {
        ULONGLONG any;
        LONG number;
    } value;
};
static_assert(sizeof(PropertyValue) == 16);

struct IItem : IUnknown
{
    static constexpr IID id{0xFB8998D0, 0x38F0, 0x4D12, {0xAC, 0x56, 0x4E, 0xC8, 0xFC, 0xE9, 0xF3, 0xD5}};

    STDMETHOD(GetProps)() = 0;
    STDMETHOD(SetProps)(ULONG flags, WORD count, PropertyValue *properties) = 0;
    STDMETHOD(Save)() = 0;
    STDMETHOD(Delete)() = 0;
    STDMETHOD(Display)() = 0;
    STDMETHOD(Edit)() = 0;
    STDMETHOD(Copy)() = 0;
    STDMETHOD(get_Oid)(LONG *oid) = 0;
    STDMETHOD(OpenProperty)() = 0;
    STDMETHOD(get_DefaultItemType)() = 0;
    STDMETHOD(get_Application)() = 0;
    STDMETHOD(get_Parent)() = 0;
    STDMETHOD(AddCategory)() = 0;
    STDMETHOD(RemoveCategory)() = 0;
};

struct IAppointment : IDispatch
{
    static constexpr IID id{0x5B43F691, 0x202C, 0x11D2, {0x8F, 0x18, 0x00, 0x00, 0xF8, 0x7A, 0x43, 0x35}};

    STDMETHOD(ClearRecurrencePattern)() = 0;
    STDMETHOD(GetRecurrencePattern)() = 0;
    STDMETHOD(get_IsRecurring)(VARIANT_BOOL *isRecurring) = 0;
    STDMETHOD(get_Subject)(BSTR *subject) = 0;
    STDMETHOD(get_Location)() = 0;
    STDMETHOD(get_Categories)() = 0;
    STDMETHOD(get_Start)(DATE *start) = 0;
    STDMETHOD(get_Duration)() = 0;
    STDMETHOD(get_End)() = 0;
    STDMETHOD(get_AllDayEvent)() = 0;
    // others follow
};

struct ITask : IDispatch
{
    static constexpr IID id{0x37C78CE0, 0x202C, 0x11D2, {0x8F, 0x18, 0x00, 0x00, 0xF8, 0x7A, 0x43, 0x35}};

    STDMETHOD(ClearRecurrencePattern)() = 0;
    STDMETHOD(GetRecurrencePattern)() = 0;
    STDMETHOD(get_IsRecurring)() = 0;
    STDMETHOD(get_Subject)(BSTR *subject) = 0;
    STDMETHOD(get_Categories)() = 0;
    STDMETHOD(get_StartDate)(DATE *start) = 0;
    STDMETHOD(get_DueDate)(DATE *due) = 0;
    STDMETHOD(get_DateCompleted)() = 0;
    STDMETHOD(get_Importance)() = 0;
    STDMETHOD(get_Complete)() = 0;
    // others follow
};

struct IPOutlookItemCollection : IDispatch
{
    static constexpr IID id{0xF06748C0, 0x21A5, 0x11D2, {0x8F, 0x18, 0x00, 0x00, 0xF8, 0x7A, 0x43, 0x35}};

    STDMETHOD(Add)() = 0;
    STDMETHOD(get_Count)(int *count) = 0;
    STDMETHOD(Find)() = 0;
    STDMETHOD(FindNext)() = 0;
    STDMETHOD(Item)(int index, IDispatch **item) = 0;
    STDMETHOD(Remove)() = 0;
    STDMETHOD(Restrict)(BSTR restriction, IPOutlookItemCollection **items) = 0;
    STDMETHOD(Sort)(BSTR property, VARIANT_BOOL descending) = 0;
    STDMETHOD(get_IncludeRecurrences)() = 0;
    STDMETHOD(put_IncludeRecurrences)(VARIANT_BOOL include) = 0;
    STDMETHOD(get__NewEnum)() = 0;
    STDMETHOD(get_Application)() = 0;
};

struct IFolder : IDispatch
{
    static constexpr IID id{0x05058F20, 0x20BE, 0x11D2, {0x8F, 0x18, 0x00, 0x00, 0xF8, 0x7A, 0x43, 0x35}};

    STDMETHOD(get_Items)(IPOutlookItemCollection **items) = 0;
    STDMETHOD(get_DefaultItemType)() = 0;
    STDMETHOD(get_Application)() = 0;
    STDMETHOD(AddItemToInfraredFolder)() = 0;
    STDMETHOD(SendToInfrared)() = 0;
    STDMETHOD(ReceiveFromInfrared)() = 0;
};

struct IPOutlookApp : IDispatch
{
    static constexpr IID id{0x05058F22, 0x20BE, 0x11D2, {0x8F, 0x18, 0x00, 0x00, 0xF8, 0x7A, 0x43, 0x35}};

    STDMETHOD(Logon)(LONG window) = 0;
    STDMETHOD(Logoff)() = 0;
    STDMETHOD(get_Version)(BSTR *version) = 0;
    STDMETHOD(GetDefaultFolder)(int number, IFolder **folder) = 0;
    STDMETHOD(CreateItem)(int kind, IDispatch **item) = 0;
    STDMETHOD(GetItemFromOid)(LONG oid, IDispatch **item) = 0;
    STDMETHOD(get_HomeCity)() = 0;
    STDMETHOD(put_HomeCity)() = 0;
    STDMETHOD(get_VisitingCity)() = 0;
    STDMETHOD(put_VisitingCity)() = 0;
    STDMETHOD(get_CurrentCityIndex)() = 0;
    STDMETHOD(put_CurrentCityIndex)() = 0;
    STDMETHOD(ReceiveFromInfrared)() = 0;
    STDMETHOD(get_OutlookCompatible)() = 0;
    STDMETHOD(GetTimeZoneFromIndex)() = 0;
    STDMETHOD(GetTimeZoneInformationFromIndex)() = 0;
    STDMETHOD(get_Application)() = 0;
    STDMETHOD(SysFreeString)(BSTR text) = 0;
    STDMETHOD(VariantTimeToSystemTime)(DATE date, SYSTEMTIME *time) = 0;
    STDMETHOD(SystemTimeToVariantTime)(SYSTEMTIME *time, DATE *date) = 0;
};

} // namespace platform::pimstore

#pragma GCC diagnostic pop
