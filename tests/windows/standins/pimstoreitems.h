#pragma once

#include "contracts/outlooksamples.h"

#include <algorithm>
#include <cwctype>
#include <iterator>
#include <limits>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <variant>
#include <vector>

// The items of the stand-in for a device's store of contacts, appointments and tasks.

namespace standins {

enum Folder { calendar = 9, contacts = 10, tasks = 13 };

using Value = std::variant<double, bool, std::wstring>;

struct Item
{
    Folder folder = calendar;
    long oid = 0;
    std::map<std::wstring, Value> values; ///< by their properties' names
    /// When it comes again, from when until when; none if it does not.
    std::vector<std::pair<double, double>> occurrences;
};

using Items = std::vector<Item>;

inline std::wstring wide(const std::u16string &text)
{
    return {text.begin(), text.end()};
}

inline std::wstring folded(std::wstring text)
{
    std::transform(text.begin(), text.end(), text.begin(), std::towlower);
    return text;
}

/// What comparing goes by: letter case does not matter.
inline Value rank(const Value &value)
{
    const auto *const text = std::get_if<std::wstring>(&value);
    return text ? folded(*text) : value;
}

/// Where a word stands outside of brackets and quotes, in whatever letter case.
inline std::size_t findOutside(const std::wstring &text, const std::wstring &word)
{
    int depth = 0;
    bool isQuoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        isQuoted = isQuoted != (text[i] == L'\'');
        depth += (text[i] == L'(' || text[i] == L'[') - (text[i] == L')' || text[i] == L']');
        if (depth == 0 && !isQuoted && folded(text.substr(i, word.size())) == word)
            return i;
    }
    return std::wstring::npos;
}

inline bool compares(const std::wstring &comparison, const Item &item)
{
    static const std::wregex syntax(
        L" *\\[(\\w+)\\] *(<=|>=|<>|<|>|=) *(?:'(.*)'|<?([0-9.]+)|(true)|false) *", std::regex::icase);
    std::wsmatch parts;
    if (!std::regex_match(comparison, parts, syntax))
        throw std::invalid_argument("no comparison");
    const Value value = rank(item.values.at(parts[1]));
    Value operand = parts[5].matched;
    if (parts[3].matched)
        operand = folded(parts[3]);
    else if (parts[4].matched)
        operand = std::stod(parts[4]);
    if (value.index() != operand.index())
        throw std::invalid_argument("a value of another kind");
    const std::wstring sign = parts[2];
    return sign.find(value < operand ? L'<' : operand < value ? L'>' : L'=') != std::wstring::npos;
}

inline bool holds(const std::wstring &restriction, const Item &item)
{
    for (const std::wstring word : {L"or", L"and"}) {
        const std::size_t at = findOutside(restriction, word);
        if (at == std::wstring::npos)
            continue;
        const bool left = holds(restriction.substr(0, at), item);
        const bool right = holds(restriction.substr(at + word.size()), item);
        return word == L"or" ? left || right : left && right;
    }
    static const std::wregex parentheses(L" *\\((.*)\\) *");
    std::wsmatch parts;
    return std::regex_match(restriction, parts, parentheses) ? holds(parts[1], item)
                                                             : compares(restriction, item);
}

/// The names of a contact's texts.
inline const std::vector<std::wstring> &contactTexts()
{
    static const std::vector<std::wstring> texts = [] {
        std::vector<std::wstring> result;
        std::istringstream names(contracts::contactTextNames);
        for (std::string name; names >> name;)
            result.emplace_back(name.begin(), name.end());
        return result;
    }();
    return texts;
}

inline Item makeAppointment(long oid, const std::wstring &subject, double start, double end)
{
    return {calendar,
            oid,
            {{L"Subject", subject}, {L"Start", start}, {L"End", end}, {L"IsRecurring", false}},
            {}};
}

/// The samples, numbered from 1 on.
inline Items sampleItems()
{
    constexpr int most = 400;
    Items items;
    for (const auto &[subject, start, end, everyDays, count] : contracts::sampleAppointments) {
        Item item = makeAppointment(0, wide(subject), start, end);
        for (int i = 0; everyDays > 0 && i < (count ? count : most); ++i)
            item.occurrences.emplace_back(start + i * everyDays, end + i * everyDays);
        item.values[L"IsRecurring"] = everyDays > 0;
        if (everyDays > 0)
            item.values[L"End"] =
                count ? item.occurrences.back().second : std::numeric_limits<double>::infinity();
        items.push_back(item);
    }
    for (const auto &[subject, start, due, isComplete] : contracts::sampleTasks)
        items.push_back({tasks,
                         0,
                         {{L"Subject", wide(subject)},
                          {L"StartDate", start},
                          {L"DueDate", due},
                          {L"Complete", isComplete}},
                         {}});
    for (const std::u16string name : contracts::sampleContacts) {
        const bool isFull = name == u"FileAs";
        Item item{contacts, 0, {}, {}};
        for (const std::wstring &text : contactTexts())
            item.values[text] = isFull ? text : std::wstring();
        item.values[L"FileAs"] = wide(name);
        item.values[L"Birthday"] = isFull ? contracts::sampleBirthday : contracts::noSampleDate;
        item.values[L"Anniversary"] = isFull ? contracts::sampleAnniversary : contracts::noSampleDate;
        items.push_back(item);
    }
    long oid = 0;
    for (Item &item : items)
        item.oid = ++oid;
    return items;
}

// Of a restriction that makes no sense, and a property that items have not, these throw an exception.

inline Items restricted(const Items &items, const std::wstring &restriction)
{
    Items result;
    std::copy_if(items.begin(), items.end(), std::back_inserter(result),
                 [&](const Item &item) { return holds(restriction, item); });
    return result;
}

inline Items sorted(Items items, const std::wstring &property, bool descending)
{
    std::stable_sort(items.begin(), items.end(), [&](const Item &a, const Item &b) {
        const Value first = rank(a.values.at(property));
        const Value second = rank(b.values.at(property));
        return descending ? second < first : first < second;
    });
    return items;
}

/// All occurrences of series in the place of these, of endless ones the first hundreds.
inline Items withOccurrences(const Items &items)
{
    Items result;
    for (const Item &item : items) {
        if (item.occurrences.empty())
            result.push_back(item);
        for (const auto &[start, end] : item.occurrences) {
            result.push_back(item);
            result.back().values[L"Start"] = start;
            result.back().values[L"End"] = end;
        }
    }
    return result;
}

} // namespace standins
