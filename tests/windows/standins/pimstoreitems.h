#pragma once

#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

// The items of the stand-in for a device's store of contacts, appointments and tasks.

namespace standins {

enum Folder { calendar = 9, contacts = 10, tasks = 13 };

struct Item
{
    using Value = std::variant<double, bool, std::wstring>;

    Folder folder = calendar;
    long oid = 0;
    std::map<std::string, Value> values; ///< by their properties' names
    /// When it comes again; none if it does not.
    std::vector<std::pair<double, double>> occurrences;

    template <typename T>
    const T &value(const std::string &name) const
    {
        return std::get<T>(values.at(name));
    }
};

using Items = std::vector<Item>;

std::vector<std::string> words(const std::string &text);

/// The samples, numbered from @p firstOid on.
Items sampleItems(long firstOid);
Item appointment(long oid, const std::wstring &subject, double start, double end);

/// Whether a restriction is true for an item; nothing if it makes no sense.
std::optional<bool> holds(const std::wstring &restriction, const Item &item);

/// All occurrences of series in the place of these, of endless ones the first hundreds.
Items withOccurrences(const Items &items);

/// False if an item has no such property.
bool sort(Items &items, const std::string &property, bool descending);

} // namespace standins
