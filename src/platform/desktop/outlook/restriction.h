#pragma once

#include "platform/pocketoutlook.h"

#include <QtCore/QString>

#include <optional>
#include <variant>
#include <vector>

namespace platform {

/// The value of a property, or what it is compared with.
using PropertyValue = std::variant<VariantDate, bool, QString>;

/// A condition for items: a comparison of a property, or several conditions.
struct Restriction
{
    enum class Kind { Comparison, AllOf, AnyOf };
    enum class Operator { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual };

    Kind kind = Kind::Comparison;
    QString property; ///< as it is written, without blanks around it
    Operator comparison = Operator::Equal;
    PropertyValue value;
    std::vector<Restriction> operands; ///< two or more, unless it is a comparison
};

/// Reads a text such as "[Start] >= <40134.52 OR ([IsRecurring] = TRUE AND [End] > <40134.52)". Comparisons
/// are = <> < <= > >=; values are dates as numbers, which "<" marks or nothing, TRUE, FALSE, and texts in
/// single or double quotes. AND binds tighter than OR. Letter case does not matter, nor do blanks. Nothing if
/// the text is malformed, longer than 65,536 characters, or goes into more than 100 pairs of parentheses.
std::optional<Restriction> parseRestriction(const QString &text);

} // namespace platform
