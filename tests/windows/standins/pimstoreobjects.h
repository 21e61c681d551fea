#pragma once

#include "windows/standins/calllog.h"
#include "windows/standins/pimstoreitems.h"

#include <algorithm>
#include <memory>
#include <set>

#include <oleauto.h>

// Objects of COM whose tables of functions are made from the names of their methods, in their order.

namespace standins {

struct Object;

/// A property and its value, as callers hand it over.
struct PropertyRecord
{
    DWORD id;
    WORD length;
    WORD flags;
    LONG value;
    LONG unused;
};

inline const std::string unknownMethods = "QueryInterface AddRef Release ";
inline const std::string dispatchMethods =
    unknownMethods + "GetTypeInfoCount GetTypeInfo GetIDsOfNames Invoke ";

[[noreturn]] inline void missing()
{
    logCall("a method that the stand-in has not");
    ExitProcess(99);
}

struct Interface
{
    Interface(const char *interfaceName, const wchar_t *interfaceId, const std::string &methodNames,
              const std::vector<std::pair<std::string, void *>> &implemented);

    std::string name;
    IID id{};
    std::vector<std::string> methods;
    std::vector<void *> table;
};

/// What objects stand for: the application, a folder, a collection or an item.
struct Thing
{
    std::vector<const Interface *> interfaces;
    Folder folder = calendar;
    Item item;
    Items all; ///< of a collection, the first of these
    std::vector<std::wstring> restrictions;
    bool includesRecurrences = false;
    std::string order;
    bool isDescending = false;

    Items items() const
    {
        Items result = includesRecurrences ? withOccurrences(all) : all;
        const auto isLeftOut = [this](const Item &each) {
            return !std::all_of(restrictions.begin(), restrictions.end(),
                                [&](const std::wstring &text) { return holds(text, each).value_or(false); });
        };
        result.erase(std::remove_if(result.begin(), result.end(), isLeftOut), result.end());
        if (!order.empty())
            sort(result, order, isDescending);
        return result;
    }
};

/// One interface of a thing, as its callers see it.
struct Object
{
    void *const *table; ///< where callers look for it
    const Interface *type;
    std::shared_ptr<Thing> thing;
    LONG references = 1;
};

struct Store
{
    long nextOid = 1001;
    Items items = sampleItems(1);
    HWND window = nullptr;
    std::set<int> toldFolders;
};
inline Store store;
inline int objects = 0;
inline std::set<BSTR> texts; ///< those given out

inline HRESULT give(void **out, const std::shared_ptr<Thing> &thing, const Interface &type)
{
    ++objects;
    *out = new Object{type.table.data(), &type, thing};
    return S_OK;
}

inline HRESULT give(BSTR *out, const std::wstring &text)
{
    // Without the length that the system's own texts have in front.
    *out = new wchar_t[text.size() + 1];
    std::copy_n(text.c_str(), text.size() + 1, *out);
    texts.insert(*out);
    return S_OK;
}

// How arguments are written down; what a call gives back is left out.
std::string written(const IID *id);

inline std::string written(PropertyRecord *property)
{
    char text[64];
    std::snprintf(text, sizeof(text), "{%08lx, %u, %u, %ld}", property->id, property->length, property->flags,
                  property->value);
    return text;
}

inline std::string written(DATE date)
{
    return std::to_string(date);
}

template <typename Argument>
std::string written(Argument argument)
{
    if constexpr (std::is_integral_v<Argument> || std::is_same_v<Argument, BSTR>)
        return shown(argument);
    else
        return {};
}

/// A function of a table: it writes the call down, and fails on demand.
template <auto method>
struct Slot;

template <typename... Arguments, HRESULT (*method)(Object &, Arguments...)>
struct Slot<method>
{
    static HRESULT STDMETHODCALLTYPE call(Object *object, Arguments... arguments)
    {
        const Interface &type = *object->type;
        const auto place = std::find(type.table.begin(), type.table.end(), reinterpret_cast<void *>(&call));
        const std::string name =
            type.name + "::" + type.methods[static_cast<std::size_t>(place - type.table.begin())];
        std::string all;
        [[maybe_unused]] const auto add = [&all](const std::string &argument) {
            all += (all.empty() || argument.empty() ? "" : ", ") + argument;
        };
        (add(written(arguments)), ...);
        logCall(name + '(' + all + ')');
        return isToFail(std::wstring(name.begin(), name.end()).c_str()) ? E_FAIL
                                                                        : method(*object, arguments...);
    }
};

template <auto method>
void *slot()
{
    return reinterpret_cast<void *>(&Slot<method>::call);
}

inline ULONG STDMETHODCALLTYPE addReference(Object *object)
{
    return static_cast<ULONG>(++object->references);
}

inline ULONG STDMETHODCALLTYPE release(Object *object)
{
    const LONG left = --object->references;
    if (left == 0) {
        --objects;
        delete object;
    }
    return static_cast<ULONG>(left);
}

inline HRESULT queryInterface(Object &object, const IID *id, void **out)
{
    if (*id == IID_IUnknown || *id == object.type->id) {
        addReference(&object);
        *out = &object;
        return S_OK;
    }
    for (const Interface *const each : object.thing->interfaces) {
        if (*id == each->id)
            return give(out, object.thing, *each);
    }
    *out = nullptr;
    return E_NOINTERFACE;
}

inline Interface::Interface(const char *interfaceName, const wchar_t *interfaceId,
                            const std::string &methodNames,
                            const std::vector<std::pair<std::string, void *>> &implemented)
    : name(interfaceName)
    , methods(words(methodNames))
    , table(methods.size(), reinterpret_cast<void *>(&missing))
{
    IIDFromString(interfaceId, &id);
    table[0] = slot<queryInterface>();
    table[1] = reinterpret_cast<void *>(&addReference);
    table[2] = reinterpret_cast<void *>(&release);
    for (const auto &[method, function] : implemented)
        table[static_cast<std::size_t>(std::find(methods.begin(), methods.end(), method) - methods.begin())] =
            function;
}

} // namespace standins
