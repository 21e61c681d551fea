#include "platform/desktop/outlook/occurrencestream.h"

#include "platform/desktop/outlook/variantdate.h"

#include <algorithm>

namespace platform {

OccurrenceStream::OccurrenceStream(const std::vector<StoredItem> &items,
                                   const std::vector<ItemFilter> &filters)
    : m_filters(filters)
{
    for (const ItemFilter &filter : filters)
        m_range = m_range.intersected(filter.startRange());
    for (const StoredItem &item : items) {
        if (std::optional<Cursor> cursor = begin(item))
            m_heap.push_back(std::move(*cursor));
    }
    std::make_heap(m_heap.begin(), m_heap.end(), isLater);
}

std::optional<ItemEntry> OccurrenceStream::next()
{
    while (!m_heap.empty() && m_count < mostOccurrences) {
        ++m_count;
        ItemEntry entry{m_heap.front().stored, m_heap.front().occurrence};
        advance();
        if (std::all_of(m_filters.cbegin(), m_filters.cend(),
                        [&entry](const ItemFilter &filter) { return filter.accepts(entry); }))
            return entry;
    }
    return std::nullopt;
}

bool OccurrenceStream::isLater(const Cursor &a, const Cursor &b)
{
    // The list is one piece of memory, so its order is that of the addresses.
    return a.occurrence.start != b.occurrence.start ? a.occurrence.start > b.occurrence.start
                                                    : a.stored > b.stored;
}

std::optional<Occurrence> OccurrenceStream::nextInRange(OccurrenceWalk &walk) const
{
    std::optional<Occurrence> occurrence = walk.next();
    return occurrence && occurrence->start <= m_range.to ? occurrence : std::nullopt;
}

std::optional<OccurrenceStream::Cursor> OccurrenceStream::begin(const StoredItem &item) const
{
    const auto appointment = std::static_pointer_cast<const Appointment>(item.item);
    if (!appointment->isRecurring()) {
        const Occurrence only = appointment->first();
        const bool isInRange = only.start >= m_range.from && only.start <= m_range.to;
        return isInRange ? std::optional(Cursor{&item, only, nullptr}) : std::nullopt;
    }
    if (m_range.from > m_range.to)
        return std::nullopt;
    auto walk = std::make_unique<OccurrenceWalk>(appointment, std::max(m_range.from, firstDay));
    const std::optional<Occurrence> first = nextInRange(*walk);
    return first ? std::optional(Cursor{&item, *first, std::move(walk)}) : std::nullopt;
}

/// Moves the earliest appointment on to its next occurrence.
void OccurrenceStream::advance()
{
    std::pop_heap(m_heap.begin(), m_heap.end(), isLater);
    Cursor &last = m_heap.back();
    const std::optional<Occurrence> occurrence = last.rest ? nextInRange(*last.rest) : std::nullopt;
    if (!occurrence) {
        m_heap.pop_back();
        return;
    }
    last.occurrence = *occurrence;
    std::push_heap(m_heap.begin(), m_heap.end(), isLater);
}

} // namespace platform
