#pragma once

#include "platform/desktop/outlook/appointment.h"
#include "platform/desktop/outlook/itemfolder.h"
#include "platform/desktop/outlook/restriction.h"

namespace platform {

/// An item as a collection shows it.
struct ItemEntry
{
    const StoredItem *stored = nullptr; ///< not owned
    std::optional<Occurrence> occurrence; ///< if it shows one of the item's occurrences
};

/// A property that items of a folder can be compared and put in order by.
struct ItemProperty
{
    QLatin1String name;
    PropertyValue (*get)(const ItemEntry &entry);
    PropertyValue sample; ///< any value of its type

    /// The property of that name, without regard to letter case. Null if the items of @p folder have none.
    static const ItemProperty *find(OutlookFolder folder, const QString &name);
};

/// Less than, equal to or greater than 0 as @p a comes before @p b, which is of the same type, is the same,
/// or comes behind it. Texts compare without regard to letter case.
int compare(const PropertyValue &a, const PropertyValue &b);

/// Starts of appointments, bounds included.
struct StartRange
{
    VariantDate from;
    VariantDate to;

    static StartRange all();
    static StartRange none();
    StartRange intersected(const StartRange &other) const;
    StartRange united(const StartRange &other) const;
};

/// A restriction of the items of a certain folder.
class ItemFilter
{
public:
    /// Nothing if they do not have its properties, or of other types.
    static std::optional<ItemFilter> make(const Restriction &restriction, OutlookFolder folder);

    bool accepts(const ItemEntry &entry) const;

    /// No appointment that starts outside is accepted.
    StartRange startRange() const;

private:
    ItemFilter() = default;
    StartRange rangeOfComparison() const;

    Restriction::Kind m_kind = Restriction::Kind::Comparison;
    Restriction::Operator m_comparison = Restriction::Operator::Equal;
    const ItemProperty *m_property = nullptr;
    PropertyValue m_value;
    std::vector<ItemFilter> m_operands;
};

} // namespace platform
