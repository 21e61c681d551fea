#include "windows/standins/pimstoreitems.h"

#include "contracts/outlooksamples.h"

#include <algorithm>
#include <cwctype>
#include <iterator>
#include <limits>
#include <sstream>

namespace standins {

namespace {

std::wstring wide(const std::u16string &text)
{
    return {text.begin(), text.end()};
}

std::wstring folded(std::wstring text)
{
    std::transform(text.begin(), text.end(), text.begin(), std::towlower);
    return text;
}

/// Below 0, 0 or above 0; texts without regard to letter case.
int compare(const Item::Value &a, const Item::Value &b)
{
    if (const auto *const text = std::get_if<std::wstring>(&a))
        return folded(*text).compare(folded(std::get<std::wstring>(b)));
    return a < b ? -1 : b < a ? 1 : 0;
}

/// Reads a restriction and finds out on the way whether it is true.
class Restriction
{
public:
    Restriction(const std::wstring &text, const Item &item)
        : m_text(text)
        , m_item(item)
    {
    }

    std::optional<bool> holds()
    {
        const bool result = anyOf();
        take(L"");
        return m_makesSense && m_at == m_text.size() ? std::optional(result) : std::nullopt;
    }

private:
    bool anyOf()
    {
        bool result = allOf();
        while (take(L"OR"))
            result = allOf() || result;
        return result;
    }

    bool allOf()
    {
        bool result = operand();
        while (take(L"AND"))
            result = operand() && result;
        return result;
    }

    bool operand()
    {
        if (!take(L"("))
            return comparison();
        const bool result = anyOf();
        require(take(L")"));
        return result;
    }

    bool comparison()
    {
        require(take(L"["));
        const std::wstring name = until(L']');
        const auto property = m_item.values.find(std::string(name.begin(), name.end()));
        const wchar_t *const signs[] = {L"<=", L">=", L"<>", L"<", L">", L"="};
        const auto *const sign = std::find_if(std::begin(signs), std::end(signs),
                                              [this](const wchar_t *each) { return take(each); });
        const Item::Value operandValue = value();
        require(property != m_item.values.end() && sign != std::end(signs)
                && property->second.index() == operandValue.index());
        if (!m_makesSense)
            return false;
        const int order = compare(property->second, operandValue);
        const bool results[] = {order <= 0, order >= 0, order != 0, order<0, order> 0, order == 0};
        return results[sign - signs];
    }

    Item::Value value()
    {
        if (take(L"TRUE"))
            return true;
        if (take(L"FALSE"))
            return false;
        if (take(L"'"))
            return until(L'\'');
        take(L"<");
        wchar_t *end = nullptr;
        const double number = std::wcstod(&m_text[m_at], &end);
        require(end != &m_text[m_at]);
        m_at = static_cast<std::size_t>(end - m_text.data());
        return number;
    }

    bool take(const std::wstring &word)
    {
        while (m_at < m_text.size() && m_text[m_at] == L' ')
            ++m_at;
        if (folded(m_text.substr(m_at, word.size())) != folded(word))
            return false;
        m_at += word.size();
        return true;
    }

    std::wstring until(wchar_t end)
    {
        const std::size_t begin = m_at;
        m_at = m_text.find(end, begin);
        require(m_at != std::wstring::npos);
        m_at = std::min(m_at, m_text.size() - 1) + 1;
        return m_text.substr(begin, m_at - begin - 1);
    }

    void require(bool condition) { m_makesSense = m_makesSense && condition; }

    const std::wstring &m_text;
    const Item &m_item;
    std::size_t m_at = 0;
    bool m_makesSense = true;
};

Item toItem(const contracts::SampleAppointment &sample)
{
    constexpr int most = 400;
    constexpr double endOfTime = std::numeric_limits<double>::infinity();
    Item item = appointment(0, wide(sample.subject), sample.start, sample.end);
    if (sample.everyDays == 0)
        return item;
    for (int i = 0; i < (sample.count ? sample.count : most); ++i)
        item.occurrences.emplace_back(sample.start + i * sample.everyDays, sample.end + i * sample.everyDays);
    item.values["IsRecurring"] = true;
    item.values["End"] = sample.count ? item.occurrences.back().second : endOfTime;
    return item;
}

Item toItem(const contracts::SampleTask &sample)
{
    return {tasks,
            0,
            {{"Subject", wide(sample.subject)},
             {"StartDate", sample.start},
             {"DueDate", sample.due},
             {"Complete", sample.isComplete}},
            {}};
}

Item toItem(const char16_t *sample)
{
    const bool isFull = wide(sample) == L"FileAs";
    Item item{contacts, 0, {}, {}};
    for (const std::string &name : words(contracts::contactTextNames))
        item.values[name] = isFull ? std::wstring(name.begin(), name.end()) : std::wstring();
    item.values["FileAs"] = wide(sample);
    item.values["Birthday"] = isFull ? contracts::sampleBirthday : contracts::noSampleDate;
    item.values["Anniversary"] = isFull ? contracts::sampleAnniversary : contracts::noSampleDate;
    return item;
}

} // namespace

std::vector<std::string> words(const std::string &text)
{
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

Items sampleItems(long firstOid)
{
    Items items;
    const auto add = [&](const auto &samples) {
        for (const auto &sample : samples) {
            items.push_back(toItem(sample));
            items.back().oid = firstOid++;
        }
    };
    add(contracts::sampleAppointments);
    add(contracts::sampleTasks);
    add(contracts::sampleContacts);
    return items;
}

Item appointment(long oid, const std::wstring &subject, double start, double end)
{
    return {
        calendar, oid, {{"Subject", subject}, {"Start", start}, {"End", end}, {"IsRecurring", false}}, {}};
}

std::optional<bool> holds(const std::wstring &restriction, const Item &item)
{
    return Restriction(restriction, item).holds();
}

Items withOccurrences(const Items &items)
{
    Items result;
    for (const Item &item : items) {
        if (item.occurrences.empty())
            result.push_back(item);
        for (const auto &[start, end] : item.occurrences) {
            result.push_back(item);
            result.back().values["Start"] = start;
            result.back().values["End"] = end;
        }
    }
    return result;
}

bool sort(Items &items, const std::string &property, bool descending)
{
    const auto lacks = [&](const Item &item) { return item.values.count(property) == 0; };
    if (std::any_of(items.begin(), items.end(), lacks))
        return false;
    std::stable_sort(items.begin(), items.end(), [&](const Item &a, const Item &b) {
        const int order = compare(a.values.at(property), b.values.at(property));
        return descending ? order > 0 : order < 0;
    });
    return true;
}

} // namespace standins
