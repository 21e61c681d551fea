#include "platform/desktop/outlook/itemcollection.h"

#include "platform/desktop/outlook/items.h"

#include <algorithm>
#include <numeric>

namespace platform {

namespace {

const QLatin1String startName("Start");

QString withoutBrackets(QString name)
{
    name = name.trimmed();
    if (name.startsWith(QLatin1Char('[')) && name.endsWith(QLatin1Char(']')))
        name = name.mid(1, name.size() - 2).trimmed();
    return name;
}

} // namespace

ItemCollection::ItemCollection(OutlookFolder folder, ItemList items)
    : m_folder(folder)
    , m_items(std::move(items))
{
}

ItemCollection::ItemCollection(const ItemCollection &from, ItemFilter filter)
    : m_folder(from.m_folder)
    , m_items(from.m_items)
    , m_filters(from.m_filters)
    , m_includesRecurrences(from.m_includesRecurrences)
    , m_order(from.m_order)
    , m_isDescending(from.m_isDescending)
{
    m_filters.push_back(std::move(filter));
}

std::optional<int> ItemCollection::get_Count()
{
    fill(mostItems);
    return static_cast<int>(m_entries.size());
}

std::unique_ptr<IPOutlookItem> ItemCollection::Item(int index)
{
    if (index < 1)
        return nullptr;
    const auto count = static_cast<std::size_t>(index);
    fill(count);
    return count <= m_entries.size() ? makeItem(m_folder, m_entries[count - 1]) : nullptr;
}

std::unique_ptr<IPOutlookItemCollection> ItemCollection::Restrict(const std::u16string &restriction)
{
    const std::optional<Restriction> parsed = parseRestriction(QString::fromStdU16String(restriction));
    std::optional<ItemFilter> filter = parsed ? ItemFilter::make(*parsed, m_folder) : std::nullopt;
    if (!filter)
        return nullptr;
    return std::unique_ptr<ItemCollection>(new ItemCollection(*this, std::move(*filter)));
}

bool ItemCollection::Sort(const std::u16string &property, bool descending)
{
    const ItemProperty *order =
        ItemProperty::find(m_folder, withoutBrackets(QString::fromStdU16String(property)));
    if (!order)
        return false;
    m_order = order;
    m_isDescending = descending;
    startAgain();
    return true;
}

bool ItemCollection::put_IncludeRecurrences(bool include)
{
    m_includesRecurrences = include && m_folder == OutlookFolder::Calendar;
    startAgain();
    return true;
}

bool ItemCollection::isByStart() const
{
    return !m_order || (m_order->name == startName && !m_isDescending);
}

void ItemCollection::startAgain()
{
    m_entries.clear();
    m_rest.reset();
    m_isFilled = false;
}

/// Sees to it that there are @p count entries, if there are so many.
void ItemCollection::fill(std::size_t count)
{
    if (m_isFilled || m_entries.size() >= count)
        return;
    if (!m_includesRecurrences)
        fillWithItems();
    else
        fillWithOccurrences(isByStart() ? std::min(count, mostItems) : mostItems);
    if (m_order && !(m_includesRecurrences && isByStart()))
        sortEntries();
}

void ItemCollection::fillWithItems()
{
    for (const StoredItem &item : *m_items) {
        ItemEntry entry{&item, std::nullopt};
        if (std::all_of(m_filters.cbegin(), m_filters.cend(),
                        [&entry](const ItemFilter &filter) { return filter.accepts(entry); }))
            m_entries.push_back(std::move(entry));
    }
    m_isFilled = true;
}

void ItemCollection::fillWithOccurrences(std::size_t count)
{
    if (!m_rest)
        m_rest = std::make_unique<OccurrenceStream>(*m_items, m_filters);
    while (m_entries.size() < count && !m_isFilled) {
        if (std::optional<ItemEntry> entry = m_rest->next())
            m_entries.push_back(std::move(*entry));
        else
            m_isFilled = true;
    }
    m_isFilled = m_isFilled || m_entries.size() >= mostItems;
}

void ItemCollection::sortEntries()
{
    std::vector<PropertyValue> values;
    values.reserve(m_entries.size());
    for (const ItemEntry &entry : m_entries)
        values.push_back(m_order->get(entry));
    std::vector<std::size_t> places(m_entries.size());
    std::iota(places.begin(), places.end(), std::size_t(0));
    std::stable_sort(places.begin(), places.end(), [&](std::size_t a, std::size_t b) {
        const int comparison = compare(values[a], values[b]);
        return m_isDescending ? comparison > 0 : comparison < 0;
    });
    std::vector<ItemEntry> sorted;
    sorted.reserve(m_entries.size());
    for (const std::size_t place : places)
        sorted.push_back(std::move(m_entries[place]));
    m_entries = std::move(sorted);
}

} // namespace platform
