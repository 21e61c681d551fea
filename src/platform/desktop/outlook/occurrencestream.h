#pragma once

#include "platform/desktop/outlook/itemfilter.h"

namespace platform {

/// The appointments of a list and all occurrences of its series, by their starts, worked out one by one. Same
/// starts follow the order of the list.
class OccurrenceStream
{
public:
    /// After so many occurrences it ends, also of such as no filter accepts.
    static constexpr int mostOccurrences = 1000000;

    /// Those which all @p filters accept. @p items and @p filters have to live as long.
    OccurrenceStream(const std::vector<StoredItem> &items, const std::vector<ItemFilter> &filters);

    /// Nothing at the end.
    std::optional<ItemEntry> next();

private:
    /// An appointment at one of its occurrences.
    struct Cursor
    {
        const StoredItem *stored;
        Occurrence occurrence;
        std::unique_ptr<OccurrenceWalk> rest; ///< null if that is the only occurrence
    };

    static bool isLater(const Cursor &a, const Cursor &b);
    std::optional<Occurrence> nextInRange(OccurrenceWalk &walk) const;
    std::optional<Cursor> begin(const StoredItem &item) const;
    void advance();

    const std::vector<ItemFilter> &m_filters;
    StartRange m_range = StartRange::all();
    std::vector<Cursor> m_heap; ///< the earliest first
    int m_count = 0;
};

} // namespace platform
