#include "platform/desktop/outlook/itemfilter.h"

#include "platform/desktop/outlook/contact.h"
#include "platform/desktop/outlook/task.h"

#include <algorithm>
#include <limits>

namespace platform {

namespace {

using Operator = Restriction::Operator;
using Kind = Restriction::Kind;

constexpr VariantDate endOfTime = std::numeric_limits<VariantDate>::infinity();
const QLatin1String startName("Start");
const QLatin1String endName("End");

template <typename Item>
const Item &item(const ItemEntry &entry)
{
    return static_cast<const Item &>(*entry.stored->item);
}

PropertyValue start(const ItemEntry &entry)
{
    return entry.occurrence ? entry.occurrence->start : item<Appointment>(entry).first().start;
}

PropertyValue end(const ItemEntry &entry)
{
    return entry.occurrence ? entry.occurrence->end : item<Appointment>(entry).end();
}

PropertyValue isRecurring(const ItemEntry &entry)
{
    return item<Appointment>(entry).isRecurring();
}

PropertyValue appointmentSubject(const ItemEntry &entry)
{
    return entry.occurrence ? entry.occurrence->subject : item<Appointment>(entry).first().subject;
}

template <auto member>
PropertyValue ofTask(const ItemEntry &entry)
{
    return item<Task>(entry).*member;
}

PropertyValue fileAs(const ItemEntry &entry)
{
    return item<Contact>(entry).texts[static_cast<std::size_t>(ContactText::FileAs)];
}

using Properties = std::vector<ItemProperty>;

const Properties &propertiesOf(OutlookFolder folder)
{
    static const Properties appointment = {
        {startName, start, noDate},
        {endName, end, noDate},
        {QLatin1String("IsRecurring"), isRecurring, false},
        {QLatin1String("Subject"), appointmentSubject, QString()},
    };
    static const Properties task = {
        {QLatin1String("StartDate"), ofTask<&Task::startDate>, noDate},
        {QLatin1String("DueDate"), ofTask<&Task::dueDate>, noDate},
        {QLatin1String("Complete"), ofTask<&Task::isComplete>, false},
        {QLatin1String("Subject"), ofTask<&Task::subject>, QString()},
    };
    static const Properties contact = {{QLatin1String("FileAs"), fileAs, QString()}};
    return folder == OutlookFolder::Calendar ? appointment : folder == OutlookFolder::Tasks ? task : contact;
}

bool holds(int comparison, Operator expected)
{
    switch (expected) {
    case Operator::Equal:
        return comparison == 0;
    case Operator::NotEqual:
        return comparison != 0;
    case Operator::Less:
        return comparison < 0;
    case Operator::LessOrEqual:
        return comparison <= 0;
    case Operator::Greater:
        return comparison > 0;
    case Operator::GreaterOrEqual:
        return comparison >= 0;
    }
    return false;
}

} // namespace

const ItemProperty *ItemProperty::find(OutlookFolder folder, const QString &name)
{
    const Properties &properties = propertiesOf(folder);
    const auto found =
        std::find_if(properties.cbegin(), properties.cend(), [&name](const ItemProperty &property) {
            return name.compare(property.name, Qt::CaseInsensitive) == 0;
        });
    return found != properties.cend() ? &*found : nullptr;
}

int compare(const PropertyValue &a, const PropertyValue &b)
{
    if (const QString *text = std::get_if<QString>(&a))
        return text->toLower().compare(std::get<QString>(b).toLower());
    return a < b ? -1 : b < a ? 1 : 0;
}

StartRange StartRange::all()
{
    return {-endOfTime, endOfTime};
}

StartRange StartRange::none()
{
    return {endOfTime, -endOfTime};
}

StartRange StartRange::intersected(const StartRange &other) const
{
    return {std::max(from, other.from), std::min(to, other.to)};
}

StartRange StartRange::united(const StartRange &other) const
{
    return {std::min(from, other.from), std::max(to, other.to)};
}

std::optional<ItemFilter> ItemFilter::make(const Restriction &restriction, OutlookFolder folder)
{
    ItemFilter filter;
    filter.m_kind = restriction.kind;
    if (restriction.kind == Kind::Comparison) {
        filter.m_comparison = restriction.comparison;
        filter.m_property = ItemProperty::find(folder, restriction.property);
        filter.m_value = restriction.value;
        if (!filter.m_property || filter.m_property->sample.index() != filter.m_value.index())
            return std::nullopt;
    }
    for (const Restriction &operand : restriction.operands) {
        std::optional<ItemFilter> made = make(operand, folder);
        if (!made)
            return std::nullopt;
        filter.m_operands.push_back(std::move(*made));
    }
    return filter;
}

bool ItemFilter::accepts(const ItemEntry &entry) const
{
    const auto isAccepted = [&entry](const ItemFilter &operand) { return operand.accepts(entry); };
    switch (m_kind) {
    case Kind::Comparison:
        return holds(compare(m_property->get(entry), m_value), m_comparison);
    case Kind::AllOf:
        return std::all_of(m_operands.cbegin(), m_operands.cend(), isAccepted);
    case Kind::AnyOf:
        return std::any_of(m_operands.cbegin(), m_operands.cend(), isAccepted);
    }
    return false;
}

StartRange ItemFilter::startRange() const
{
    if (m_kind == Kind::Comparison)
        return rangeOfComparison();
    StartRange range = m_kind == Kind::AllOf ? StartRange::all() : StartRange::none();
    for (const ItemFilter &operand : m_operands)
        range = m_kind == Kind::AllOf ? range.intersected(operand.startRange())
                                      : range.united(operand.startRange());
    return range;
}

StartRange ItemFilter::rangeOfComparison() const
{
    const bool isOfStart = m_property->name == startName;
    if (!isOfStart && m_property->name != endName)
        return StartRange::all();
    const VariantDate date = std::get<VariantDate>(m_value);
    switch (m_comparison) {
    case Operator::Less:
    case Operator::LessOrEqual:
        return {-endOfTime, date}; // what ends by then has started by then
    case Operator::Equal:
        return {isOfStart ? date : -endOfTime, date};
    case Operator::Greater:
    case Operator::GreaterOrEqual:
        return {isOfStart ? date : -endOfTime, endOfTime};
    case Operator::NotEqual:
        break;
    }
    return StartRange::all();
}

} // namespace platform
