#pragma once

#include "platform/clock.h"
#include "platform/toplevelwindows.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// The store of contacts, appointments and tasks, as the Pocket Outlook Object Model offers it. Interfaces and
// operations keep the model's names. What an operation hands out is the caller's, and destroying it is
// Release(); it may outlive what it came from. GUI thread only.

namespace platform {

/// A date and time of day in the device's time zone: days since 30 December 1899, the time of day as the
/// fraction (an OLE automation date).
using VariantDate = double;

/// What stands for "no date": 1 January 4501.
constexpr VariantDate noDate = 949998.0;

/// The default folders, by their numbers in the store (OlDefaultFolders).
enum class OutlookFolder : std::int32_t { Calendar = 9, Contacts = 10, Tasks = 13 };

/// A change by another program is told to the window given at Logon() in one of these messages. The first
/// parameter is the item's object identifier, the second the number of its folder.
namespace OutlookMessage {
constexpr std::uint32_t itemCreated = 0x8105; ///< PIM_ITEM_CREATED_REMOTE
constexpr std::uint32_t itemDeleted = 0x8106; ///< PIM_ITEM_DELETED_REMOTE
constexpr std::uint32_t itemChanged = 0x8107; ///< PIM_ITEM_CHANGED_REMOTE
} // namespace OutlookMessage

/// Property of a folder: of which changes it tells, a 32-bit number (PIMPR_FOLDERNOTIFICATIONS).
constexpr std::uint32_t folderNotifications = 0x10010013;
/// Of those by other programs (PIMFOLDERNOTIFICATION_REMOTE). 0: of none.
constexpr std::int32_t remoteChanges = 1;

/// A property and its value (CEPROPVAL with a 32-bit number).
struct OutlookProperty
{
    std::uint32_t id = 0;
    std::uint16_t length = 0;
    std::uint16_t flags = 0;
    std::int32_t value = 0;
};

/// Properties that are read as streams of bytes.
enum class OutlookStream {
    Picture, ///< a contact's photo: the bytes of a picture file
};

/// A folder or item seen as a bundle of properties.
class IItem
{
public:
    virtual ~IItem() = default;

    /// Sets properties. False on failure, as for properties that cannot be set.
    virtual bool SetProps(std::uint32_t flags, const std::vector<OutlookProperty> &properties) = 0;

    /// The object identifier, never 0. The same from run to run, and never another item's. Nothing for a
    /// folder.
    virtual std::optional<std::int32_t> get_Oid() = 0;

    /// The whole content of a stream (OpenProperty() for reading). Nothing if the item has none.
    virtual std::optional<std::vector<std::uint8_t>> OpenProperty(OutlookStream stream) = 0;
};

/// An item of a folder: an IAppointment, an ITask or an IContact, which dynamic_cast tells (QueryInterface).
class IPOutlookItem
{
public:
    virtual ~IPOutlookItem() = default;

    /// The item's bundle of properties (QueryInterface for IItem). Null on failure.
    virtual std::unique_ptr<IItem> QueryItem() = 0;
};

// A getter of an item gives nothing if the store fails. A text that is not set is empty.

/// An appointment, a series of them, or with recurrences on, one occurrence of a series.
class IAppointment : public IPOutlookItem
{
public:
    /// Whether it is a series or belongs to one.
    virtual std::optional<bool> get_IsRecurring() = 0;
    virtual std::optional<std::u16string> get_Subject() = 0;
    /// Of a series: of its first occurrence. An all-day appointment starts at midnight.
    virtual std::optional<VariantDate> get_Start() = 0;
};

/// A task. Its dates have no time of day, and are noDate if they are not set.
class ITask : public IPOutlookItem
{
public:
    virtual std::optional<std::u16string> get_Subject() = 0;
    virtual std::optional<VariantDate> get_StartDate() = 0;
    virtual std::optional<VariantDate> get_DueDate() = 0;
};

/// A contact's dates.
enum class ContactDate { Birthday, Anniversary };

/// A contact's texts, in the model's order.
enum class ContactText {
    BusinessFaxNumber,
    CompanyName,
    Department,
    Email1Address,
    MobileTelephoneNumber,
    OfficeLocation,
    PagerNumber,
    BusinessTelephoneNumber,
    JobTitle,
    HomeTelephoneNumber,
    Email2Address,
    Spouse,
    Email3Address,
    Home2TelephoneNumber,
    HomeFaxNumber,
    CarTelephoneNumber,
    AssistantName,
    AssistantTelephoneNumber,
    Children,
    Categories,
    WebPage,
    Business2TelephoneNumber,
    Title,
    FirstName,
    MiddleName,
    LastName,
    Suffix,
    HomeAddressStreet,
    HomeAddressCity,
    HomeAddressState,
    HomeAddressPostalCode,
    HomeAddressCountry,
    OtherAddressStreet,
    OtherAddressCity,
    OtherAddressState,
    OtherAddressPostalCode,
    OtherAddressCountry,
    BusinessAddressStreet,
    BusinessAddressCity,
    BusinessAddressState,
    BusinessAddressPostalCode,
    BusinessAddressCountry,
    RadioTelephoneNumber,
    FileAs, ///< the name by which the folder is in order
    Body,
    YomiCompanyName,
    YomiFirstName,
    YomiLastName,
};
constexpr int contactTextCount = static_cast<int>(ContactText::YomiLastName) + 1;

class IContact : public IPOutlookItem
{
public:
    virtual std::optional<std::u16string> get_Text(ContactText property) = 0;
    /// noDate if it is not set.
    virtual std::optional<VariantDate> get_Date(ContactDate property) = 0;
    /// As IItem::get_Oid().
    virtual std::optional<std::int32_t> get_Oid() = 0;
};

/// Items of a folder, in an order. It shows what the folder held when the collection was made.
class IPOutlookItemCollection
{
public:
    virtual ~IPOutlookItemCollection() = default;

    virtual std::optional<int> get_Count() = 0;

    /// The item at @p index, which counts from 1. Null if there is none.
    virtual std::unique_ptr<IPOutlookItem> Item(int index) = 0;

    /// The items for which @p restriction holds, such as "[Start] >= <40134.52 OR [IsRecurring] = TRUE". Null
    /// if it makes no sense. [End] of a series is the end of its last occurrence.
    virtual std::unique_ptr<IPOutlookItemCollection> Restrict(const std::u16string &restriction) = 0;

    /// Orders the items by a property, such as "Start". False if they have none of that name.
    virtual bool Sort(const std::u16string &property, bool descending) = 0;

    /// Whether a series stands for all of its occurrences, one item each, or only for itself, as at first.
    /// Collections that Restrict() makes later take this over. Endless series make an endless collection, of
    /// which only the first items can be asked for.
    virtual bool put_IncludeRecurrences(bool include) = 0;
};

class IFolder
{
public:
    virtual ~IFolder() = default;

    /// All items of the folder. Null on failure.
    virtual std::unique_ptr<IPOutlookItemCollection> get_Items() = 0;

    /// The folder's bundle of properties (QueryInterface for IItem). Null on failure.
    virtual std::unique_ptr<IItem> QueryItem() = 0;
};

/// The connection with the store, which ends when it is destroyed.
class IPOutlookApp
{
public:
    virtual ~IPOutlookApp() = default;

    /// Begins the session; changes will be told to @p window, which may be 0 for none. False on failure.
    virtual bool Logon(WindowHandle window) = 0;

    /// Ends the session: no change is told any more.
    virtual bool Logoff() = 0;

    /// Null on failure.
    virtual std::unique_ptr<IFolder> GetDefaultFolder(OutlookFolder folder) = 0;

    /// The item of that object identifier, of whatever folder. Null if there is none.
    virtual std::unique_ptr<IPOutlookItem> GetItemFromOid(std::int32_t oid) = 0;

    /// Nothing if it is no date that the system can write.
    virtual std::optional<SystemTime> VariantTimeToSystemTime(VariantDate date) = 0;
    /// Of a date that exists.
    virtual std::optional<VariantDate> SystemTimeToVariantTime(const SystemTime &time) = 0;
};

class PocketOutlook
{
public:
    virtual ~PocketOutlook() = default;

    /// A new connection (CoCreateInstance for CLSID_Application, then QueryInterface for IPOutlookApp). Null
    /// if there is no store or it cannot be opened.
    virtual std::unique_ptr<IPOutlookApp> createApplication() = 0;
};

} // namespace platform
