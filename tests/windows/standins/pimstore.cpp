#include "contracts/outlooksamples.h"
#include "windows/standins/pimstoreobjects.h"

// A COM server that looks like a device's Pocket Outlook, and knows nothing of the back end's declarations.

namespace {

using namespace standins;

// IItem

HRESULT setProps(Object &object, ULONG, WORD count, PropertyRecord *properties)
{
    if (object.thing->item.oid != 0 || count != 1 || properties->id != 0x10010013 || properties->value < 0
        || properties->value > 1)
        return E_INVALIDARG;
    if (properties->value == 1)
        store.toldFolders.insert(object.thing->folder);
    else
        store.toldFolders.erase(object.thing->folder);
    return S_OK;
}

HRESULT getOid(Object &object, LONG *oid)
{
    *oid = object.thing->item.oid;
    return S_OK;
}

const Interface bundleType("IItem", L"{FB8998D0-38F0-4D12-AC56-4EC8FCE9F3D5}",
                           unknownMethods
                               + "GetProps SetProps Save Delete Display Edit Copy get_Oid OpenProperty "
                                 "get_DefaultItemType get_Application get_Parent AddCategory RemoveCategory",
                           {{"SetProps", slot<setProps>()}, {"get_Oid", slot<getOid>()}});

// Items

constexpr char subject[] = "Subject";
constexpr char start[] = "Start";
constexpr char startDate[] = "StartDate";
constexpr char dueDate[] = "DueDate";
constexpr char birthday[] = "Birthday";
constexpr char anniversary[] = "Anniversary";

template <const char *name>
HRESULT getText(Object &object, BSTR *text)
{
    return give(text, object.thing->item.value<std::wstring>(name));
}

template <const char *name>
HRESULT getDate(Object &object, DATE *date)
{
    *date = object.thing->item.value<double>(name);
    return S_OK;
}

HRESULT getIsRecurring(Object &object, VARIANT_BOOL *isRecurring)
{
    *isRecurring = object.thing->item.value<bool>("IsRecurring") ? -1 : 0;
    return S_OK;
}

const Interface appointmentType("IAppointment", L"{5B43F691-202C-11D2-8F18-0000F87A4335}",
                                dispatchMethods
                                    + "ClearRecurrencePattern GetRecurrencePattern get_IsRecurring "
                                      "get_Subject get_Location get_Categories "
                                      "get_Start get_Duration get_End get_AllDayEvent",
                                {{"get_IsRecurring", slot<getIsRecurring>()},
                                 {"get_Subject", slot<getText<subject>>()},
                                 {"get_Start", slot<getDate<start>>()}});

const Interface taskType("ITask", L"{37C78CE0-202C-11D2-8F18-0000F87A4335}",
                         dispatchMethods
                             + "ClearRecurrencePattern GetRecurrencePattern get_IsRecurring get_Subject "
                               "get_Categories get_StartDate "
                               "get_DueDate get_DateCompleted get_Importance get_Complete",
                         {{"get_Subject", slot<getText<subject>>()},
                          {"get_StartDate", slot<getDate<startDate>>()},
                          {"get_DueDate", slot<getDate<dueDate>>()}});

const std::vector<std::string> contactTexts = words(contracts::contactTextNames);

template <std::size_t index>
HRESULT getContactText(Object &object, BSTR *text)
{
    return give(text, object.thing->item.value<std::wstring>(contactTexts[index]));
}

std::string contactMethods()
{
    std::string methods = dispatchMethods;
    for (const char *prefix : {" get_", " put_"}) {
        for (const std::string &name :
             words(std::string("Birthday Anniversary ") + contracts::contactTextNames))
            methods += prefix + name;
    }
    return methods + " Save Delete Copy Display get_Oid put_BodyInk get_BodyInk get_Application";
}

template <std::size_t... indexes>
std::vector<std::pair<std::string, void *>> contactGetters(std::index_sequence<indexes...>)
{
    return {{"get_Birthday", slot<getDate<birthday>>()},
            {"get_Anniversary", slot<getDate<anniversary>>()},
            {"get_Oid", slot<getOid>()},
            {"get_" + contactTexts[indexes], slot<getContactText<indexes>>()}...};
}

const Interface contactType("IContact", L"{7F804E40-2010-11D2-8F18-0000F87A4335}", contactMethods(),
                            contactGetters(std::make_index_sequence<48>()));

HRESULT giveItem(IDispatch **out, const Item &item)
{
    const Interface &type = item.folder == calendar ? appointmentType
        : item.folder == tasks                      ? taskType
                                                    : contactType;
    auto thing = std::make_shared<Thing>();
    thing->interfaces = {&type, &bundleType};
    thing->item = item;
    return give(reinterpret_cast<void **>(out), thing, type);
}

// IPOutlookItemCollection

extern const Interface collectionType;

HRESULT getCount(Object &object, int *count)
{
    *count = static_cast<int>(object.thing->items().size());
    return S_OK;
}

HRESULT getItem(Object &object, int index, IDispatch **out)
{
    const Items items = object.thing->items();
    if (index < 1 || index > static_cast<int>(items.size()))
        return E_INVALIDARG;
    return giveItem(out, items[static_cast<std::size_t>(index - 1)]);
}

HRESULT restrictItems(Object &object, BSTR restriction, void **out)
{
    if (!holds(restriction, object.thing->all.at(0)))
        return E_INVALIDARG;
    auto restricted = std::make_shared<Thing>(*object.thing);
    restricted->restrictions.push_back(restriction);
    return give(out, restricted, collectionType);
}

HRESULT sortItems(Object &object, BSTR property, VARIANT_BOOL descending)
{
    object.thing->order = shown(property);
    object.thing->isDescending = descending == -1;
    return sort(object.thing->all, object.thing->order, false) ? S_OK : E_INVALIDARG;
}

HRESULT putIncludeRecurrences(Object &object, VARIANT_BOOL include)
{
    object.thing->includesRecurrences = include == -1;
    return S_OK;
}

const Interface
    collectionType("IPOutlookItemCollection", L"{F06748C0-21A5-11D2-8F18-0000F87A4335}",
                   dispatchMethods
                       + "Add get_Count Find FindNext Item Remove Restrict Sort "
                         "get_IncludeRecurrences put_IncludeRecurrences get__NewEnum get_Application",
                   {{"get_Count", slot<getCount>()},
                    {"Item", slot<getItem>()},
                    {"Restrict", slot<restrictItems>()},
                    {"Sort", slot<sortItems>()},
                    {"put_IncludeRecurrences", slot<putIncludeRecurrences>()}});

// IFolder

HRESULT getItems(Object &object, void **out)
{
    auto collection = std::make_shared<Thing>();
    for (const Item &item : store.items) {
        if (item.folder == object.thing->folder)
            collection->all.push_back(item);
    }
    if (object.thing->folder == contacts)
        sort(collection->all, "FileAs", false);
    return give(out, collection, collectionType);
}

const Interface folderType("IFolder", L"{05058F20-20BE-11D2-8F18-0000F87A4335}",
                           dispatchMethods
                               + "get_Items get_DefaultItemType get_Application AddItemToInfraredFolder "
                                 "SendToInfrared ReceiveFromInfrared",
                           {{"get_Items", slot<getItems>()}});

// IPOutlookApp

HRESULT logon(Object &, LONG window)
{
    store.window = reinterpret_cast<HWND>(static_cast<LONG_PTR>(window));
    return S_OK;
}

HRESULT logoff(Object &)
{
    store.window = nullptr;
    return S_OK;
}

HRESULT getDefaultFolder(Object &, int number, void **out)
{
    auto folder = std::make_shared<Thing>();
    folder->interfaces = {&folderType, &bundleType};
    folder->folder = static_cast<Folder>(number);
    return give(out, folder, folderType);
}

HRESULT getItemFromOid(Object &, LONG oid, IDispatch **out)
{
    for (const Item &item : store.items) {
        if (item.oid == oid)
            return giveItem(out, item);
    }
    return E_INVALIDARG;
}

HRESULT freeText(Object &, BSTR text)
{
    if (texts.erase(text) == 0)
        return E_INVALIDARG;
    delete[] text;
    return S_OK;
}

HRESULT toSystemTime(Object &, DATE date, SYSTEMTIME *time)
{
    return VariantTimeToSystemTime(date, time) ? S_OK : E_INVALIDARG;
}

HRESULT toVariantTime(Object &, SYSTEMTIME *time, DATE *date)
{
    return SystemTimeToVariantTime(time, date) ? S_OK : E_INVALIDARG;
}

const Interface applicationType(
    "IPOutlookApp", L"{05058F22-20BE-11D2-8F18-0000F87A4335}",
    dispatchMethods
        + "Logon Logoff get_Version GetDefaultFolder CreateItem GetItemFromOid get_HomeCity "
          "put_HomeCity get_VisitingCity put_VisitingCity get_CurrentCityIndex "
          "put_CurrentCityIndex ReceiveFromInfrared get_OutlookCompatible "
          "GetTimeZoneFromIndex GetTimeZoneInformationFromIndex get_Application SysFreeString "
          "VariantTimeToSystemTime SystemTimeToVariantTime",
    {{"Logon", slot<logon>()},
     {"Logoff", slot<logoff>()},
     {"GetDefaultFolder", slot<getDefaultFolder>()},
     {"GetItemFromOid", slot<getItemFromOid>()},
     {"SysFreeString", slot<freeText>()},
     {"VariantTimeToSystemTime", slot<toSystemTime>()},
     {"SystemTimeToVariantTime", slot<toVariantTime>()}});

// Making the application

const Interface unknownType("IUnknown", L"{00000000-0000-0000-C000-000000000046}", unknownMethods, {});

HRESULT createInstance(Object &, IUnknown *, const IID *id, void **out)
{
    if (*id != IID_IUnknown)
        return E_NOINTERFACE;
    auto application = std::make_shared<Thing>();
    application->interfaces = {&applicationType};
    return give(out, application, unknownType);
}

const Interface factoryType("IClassFactory", L"{00000001-0000-0000-C000-000000000046}",
                            unknownMethods + "CreateInstance LockServer",
                            {{"CreateInstance", slot<createInstance>()}});

} // namespace

std::string standins::written(const IID *id)
{
    for (const Interface *const each :
         {&unknownType, &bundleType, &appointmentType, &taskType, &contactType, &applicationType}) {
        if (*id == each->id)
            return each->name;
    }
    return "another";
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void **out)
{
    IID application{};
    CLSIDFromString(L"{05058F23-20BE-11D2-8F18-0000F87A4335}", &application);
    if (classId != application || id != factoryType.id)
        return CLASS_E_CLASSNOTAVAILABLE;
    return give(out, std::make_shared<Thing>(), factoryType);
}

STDAPI DllCanUnloadNow()
{
    return objects == 0 ? S_OK : S_FALSE;
}

extern "C" int livingObjects()
{
    return objects + static_cast<int>(texts.size());
}

extern "C" void resetStore()
{
    store = Store();
}

/// Creates, changes or deletes an appointment, and tells of it, in the way of @p message.
extern "C" void changeItem(UINT message, const wchar_t *name)
{
    constexpr UINT created = 0x8105;
    constexpr UINT deleted = 0x8106;
    if (message == created)
        store.items.push_back(appointment(store.nextOid++, name, 40200, 40200));
    const auto item = std::find_if(store.items.begin(), store.items.end(), [name](const Item &each) {
        return each.folder == calendar && each.value<std::wstring>(subject) == name;
    });
    const LONG oid = item->oid;
    if (message == deleted)
        store.items.erase(item);
    else if (message != created)
        item->values["Start"] = 40201.0;
    if (store.window && store.toldFolders.count(calendar) != 0)
        PostMessageW(store.window, message, static_cast<WPARAM>(oid), calendar);
}
