#include "windows/standins/pimstoreitems.h"

#include <algorithm>
#include <array>
#include <climits>
#include <map>
#include <optional>
#include <set>

#include <windows.h>

#include <oleauto.h>

// A COM server that looks like a device's Pocket Outlook, and knows nothing of the back end's declarations.

namespace {

using namespace standins;

struct Interface
{
    IID id;
    std::array<void *, 120> table;
    std::map<std::size_t, std::wstring> properties; ///< by the places of the methods that give them
};

/// One interface of the application, a folder, a collection or an item, as its callers see it.
struct Object
{
    void *const *table; ///< where callers look for it
    const Interface *type;
    const Interface *other; ///< that it has as well, or null
    Folder folder;
    Items items; ///< of a collection; of an item itself
    LONG references = 1;
};

struct Store
{
    long nextOid = 1001;
    Items items = sampleItems();
    HWND window = nullptr;
    std::set<int> toldFolders;
    int callsToSucceed = INT_MAX;
};
Store store;
int objects = 0;
std::set<BSTR> texts; // those given out

void give(void **out, const Interface &type, Folder folder = calendar, const Items &items = {},
          const Interface *other = nullptr)
{
    ++objects;
    *out = new Object{type.table.data(), &type, other, folder, items};
}

/// What fails throws this, or another exception.
void require(bool isTrue)
{
    if (!isTrue)
        throw std::invalid_argument("a call that makes no sense");
}

/// A function of a table, which fails on demand, too.
template <typename Method, typename Signature = decltype(&Method::operator())>
struct Slot;

template <typename Method, typename... Arguments>
struct Slot<Method, void (Method::*)(Object &, Arguments...) const>
{
    static inline std::optional<Method> method;

    static HRESULT STDMETHODCALLTYPE call(Object *object, Arguments... arguments)
    {
        if (store.callsToSucceed == 0)
            return E_FAIL;
        --store.callsToSucceed;
        try {
            (*method)(*object, arguments...);
            return S_OK;
        } catch (const std::exception &) {
            return E_INVALIDARG;
        }
    }
};

template <typename Method>
void *slot(Method method)
{
    Slot<Method>::method.emplace(method);
    return reinterpret_cast<void *>(&Slot<Method>::call);
}

ULONG STDMETHODCALLTYPE addReference(Object *object)
{
    return static_cast<ULONG>(++object->references);
}

ULONG STDMETHODCALLTYPE release(Object *object)
{
    const LONG left = --object->references;
    if (left == 0) {
        --objects;
        delete object;
    }
    return static_cast<ULONG>(left);
}

void write(void *out, bool value)
{
    *static_cast<VARIANT_BOOL *>(out) = value ? -1 : 0;
}

void write(void *out, double value)
{
    *static_cast<DATE *>(out) = value;
}

void write(void *out, const std::wstring &value)
{
    // Without the length that the system's own texts have in front.
    auto *const text = new wchar_t[value.size() + 1];
    std::copy_n(value.c_str(), value.size() + 1, text);
    texts.insert(text);
    *static_cast<BSTR *>(out) = text;
}

template <std::size_t... places>
std::array<void *, sizeof...(places)> makeGetters(std::index_sequence<places...>)
{
    return {slot([](Object &object, void *out) {
        const std::wstring &name = object.type->properties.at(places);
        std::visit([out](const auto &value) { write(out, value); }, object.items.at(0).values.at(name));
    })...};
}

/// @p methods and those that give @p properties stand at their places in the table of functions; all others
/// fail.
Interface makeInterface(const wchar_t *id, const std::map<std::size_t, void *> &methods,
                        const std::map<std::size_t, std::wstring> &properties = {})
{
    Interface made{{}, makeGetters(std::make_index_sequence<120>()), properties};
    IIDFromString(id, &made.id);
    made.table[0] = slot([](Object &object, const IID *wanted, void **out) {
        *out = nullptr;
        const bool isOther = object.other && *wanted == object.other->id;
        require(isOther || *wanted == object.type->id || *wanted == IID_IUnknown);
        give(out, isOther ? *object.other : *object.type, object.folder, object.items, object.other);
    });
    made.table[1] = reinterpret_cast<void *>(&addReference);
    made.table[2] = reinterpret_cast<void *>(&release);
    for (const auto &[place, function] : methods)
        made.table.at(place) = function;
    return made;
}

/// A property and its value, as callers hand it over.
struct PropertyRecord
{
    DWORD id;
    WORD length;
    WORD flags;
    LONG value;
    LONG unused;
};

void *const oidGetter = slot([](Object &object, LONG *oid) { *oid = object.items.at(0).oid; });

// IItem: SetProps, get_Oid
const Interface bundle =
    makeInterface(L"{FB8998D0-38F0-4D12-AC56-4EC8FCE9F3D5}",
                  {{4, slot([](Object &object, ULONG flags, WORD count, PropertyRecord *properties) {
                        const bool isFolder = object.items.empty();
                        require(isFolder && flags == 0 && count == 1 && properties->id == 0x10010013
                                && properties->length == 0 && properties->flags == 0 && properties->value >= 0
                                && properties->value <= 1);
                        if (properties->value == 1)
                            store.toldFolders.insert(object.folder);
                        else
                            store.toldFolders.erase(object.folder);
                    })},
                   {10, oidGetter}});

// IAppointment
const Interface appointment = makeInterface(L"{5B43F691-202C-11D2-8F18-0000F87A4335}", {},
                                            {{9, L"IsRecurring"}, {10, L"Subject"}, {13, L"Start"}});

// ITask
const Interface task = makeInterface(L"{37C78CE0-202C-11D2-8F18-0000F87A4335}", {},
                                     {{10, L"Subject"}, {12, L"StartDate"}, {13, L"DueDate"}});

std::map<std::size_t, std::wstring> contactProperties()
{
    std::map<std::size_t, std::wstring> properties{{7, L"Birthday"}, {8, L"Anniversary"}};
    for (const std::wstring &name : contactTexts())
        properties.emplace(properties.size() + 7, name);
    return properties;
}

// IContact, with get_Oid behind all properties
const Interface contact =
    makeInterface(L"{7F804E40-2010-11D2-8F18-0000F87A4335}", {{111, oidGetter}}, contactProperties());

void giveItem(void **out, const Item &item)
{
    const Interface &type = item.folder == calendar ? appointment : item.folder == tasks ? task : contact;
    give(out, type, item.folder, {item}, &bundle);
}

// IPOutlookItemCollection: get_Count, Item, Restrict, Sort, put_IncludeRecurrences
const Interface collection = makeInterface(
    L"{F06748C0-21A5-11D2-8F18-0000F87A4335}",
    {{8, slot([](Object &object, int *count) { *count = static_cast<int>(object.items.size()); })},
     {11, slot([](Object &object, int number, void **out) {
          // It does not mind numbers that are too small.
          giveItem(out, object.items.at(static_cast<std::size_t>(std::max(number, 1) - 1)));
      })},
     {13, slot([](Object &object, BSTR restriction, void **out) {
          give(out, *object.type, object.folder, restricted(object.items, restriction));
      })},
     {14, slot([](Object &object, BSTR property, VARIANT_BOOL descending) {
          object.items = sorted(object.items, property, descending == -1);
      })},
     {16, slot([](Object &object, VARIANT_BOOL include) {
          if (include == -1)
              object.items = withOccurrences(object.items);
      })}});

// IFolder: get_Items
const Interface folder =
    makeInterface(L"{05058F20-20BE-11D2-8F18-0000F87A4335}",
                  {{7, slot([](Object &object, void **out) {
                        Items items;
                        std::copy_if(store.items.begin(), store.items.end(), std::back_inserter(items),
                                     [&](const Item &item) { return item.folder == object.folder; });
                        if (object.folder == contacts)
                            items = sorted(items, L"FileAs", false);
                        give(out, collection, object.folder, items);
                    })}});

// IPOutlookApp: Logon, Logoff, GetDefaultFolder, GetItemFromOid, SysFreeString, VariantTimeToSystemTime,
// SystemTimeToVariantTime
const Interface application = makeInterface(
    L"{05058F22-20BE-11D2-8F18-0000F87A4335}",
    {{7, slot([](Object &, LONG window) {
          require(window >> 16 != 0); // to Wine, the lower half of a handle is the window, too
          store.window = reinterpret_cast<HWND>(static_cast<LONG_PTR>(window));
      })},
     {8, slot([](Object &) { store.window = nullptr; })},
     {10, slot([](Object &, int number, void **out) {
          give(out, folder, static_cast<Folder>(number), {}, &bundle);
      })},
     {12, slot([](Object &, LONG oid, void **out) {
          const auto item = std::find_if(store.items.begin(), store.items.end(),
                                         [oid](const Item &each) { return each.oid == oid; });
          require(item != store.items.end());
          giveItem(out, *item);
      })},
     {24, slot([](Object &, BSTR text) {
          require(texts.erase(text) > 0);
          delete[] text;
      })},
     {25, slot([](Object &, DATE date, SYSTEMTIME *time) { require(VariantTimeToSystemTime(date, time)); })},
     {26,
      slot([](Object &, SYSTEMTIME *time, DATE *date) { require(SystemTimeToVariantTime(time, date)); })}});

// IClassFactory: CreateInstance
const Interface factory = makeInterface(L"{00000001-0000-0000-C000-000000000046}",
                                        {{3, slot([](Object &, IUnknown *, const IID *id, void **out) {
                                              require(*id == IID_IUnknown);
                                              give(out, application);
                                          })}});

} // namespace

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void **out)
{
    CLSID applicationClass{};
    CLSIDFromString(L"{05058F23-20BE-11D2-8F18-0000F87A4335}", &applicationClass);
    if (classId != applicationClass || id != factory.id)
        return CLASS_E_CLASSNOTAVAILABLE;
    give(out, factory);
    return S_OK;
}

extern "C" int livingObjects()
{
    return objects + static_cast<int>(texts.size());
}

extern "C" void resetStore()
{
    store = Store();
}

/// Has all calls fail but the next ones, so many.
extern "C" void failAfter(int calls)
{
    store.callsToSucceed = calls;
}

/// Creates, changes or deletes an appointment, and tells of it, in the way of @p message.
extern "C" void changeItem(UINT message, const wchar_t *name)
{
    constexpr UINT created = 0x8105;
    constexpr UINT deleted = 0x8106;
    if (message == created)
        store.items.push_back(makeAppointment(store.nextOid++, name, 40200, 40200));
    const auto item = std::find_if(store.items.begin(), store.items.end(), [name](const Item &each) {
        return each.folder == calendar && each.values.at(L"Subject") == Value(name);
    });
    const LONG oid = item->oid;
    if (message == deleted)
        store.items.erase(item);
    else if (message != created)
        item->values[L"Start"] = 40201.0;
    if (store.window && store.toldFolders.count(calendar) != 0)
        PostMessageW(store.window, message, static_cast<WPARAM>(oid), calendar);
}
