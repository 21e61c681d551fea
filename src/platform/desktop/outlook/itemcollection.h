#pragma once

#include "platform/desktop/outlook/occurrencestream.h"

namespace platform {

/// Items of a folder as they were when the collection was made; later changes do not disturb it. Without an
/// order of its own it has the folder's, or with recurrences, that of the starts. In either case occurrences
/// are worked out as they are asked for.
class ItemCollection : public IPOutlookItemCollection
{
public:
    /// Where an endless collection ends.
    static constexpr std::size_t mostItems = 100000;

    ItemCollection(OutlookFolder folder, ItemList items);

    std::optional<int> get_Count() override;
    std::unique_ptr<IPOutlookItem> Item(int index) override;
    std::unique_ptr<IPOutlookItemCollection> Restrict(const std::u16string &restriction) override;
    bool Sort(const std::u16string &property, bool descending) override;
    bool put_IncludeRecurrences(bool include) override;

private:
    ItemCollection(const ItemCollection &from, ItemFilter filter);

    bool isByStart() const;
    void startAgain();
    void fill(std::size_t count);
    void fillWithItems();
    void fillWithOccurrences(std::size_t count);
    void sortEntries();

    const OutlookFolder m_folder;
    const ItemList m_items;
    std::vector<ItemFilter> m_filters; ///< all hold
    bool m_includesRecurrences = false;
    const ItemProperty *m_order = nullptr;
    bool m_isDescending = false;

    std::vector<ItemEntry> m_entries; ///< as far as they were asked for
    std::unique_ptr<OccurrenceStream> m_rest; ///< those behind them, with recurrences
    bool m_isFilled = false; ///< there are none behind them
};

} // namespace platform
