#include "platform/desktop/outlook/appointment.h"
#include "platform/desktop/outlook/calendarfile.h"
#include "platform/desktop/outlook/eventseries.h"
#include "platform/desktop/outlook/variantdate.h"

#include <QtCore/QHash>

#include <algorithm>

namespace platform {

using KCalendarCore::Event;

/// The first occurrences of a walk, as far as they have been asked for.
struct SeriesBeginning
{
    static constexpr std::size_t maxSize = 64;

    VariantDate from;
    std::vector<Occurrence> occurrences;
    SeriesWalk rest;
    bool isComplete = false;
};

Appointment::Appointment(const QString &uid, const Occurrence &only)
    : OutlookItem(uid)
    , m_first(only)
    , m_end(only.end)
{
}

Appointment::Appointment(const QString &uid, std::unique_ptr<const EventSeries> series)
    : OutlookItem(uid)
    , m_series(std::move(series))
{
}

Appointment::~Appointment() = default;

Occurrence Appointment::first() const
{
    if (!m_first)
        m_first = SeriesWalk(*m_series, firstDay).next().value_or(m_series->beginning());
    return *m_first;
}

VariantDate Appointment::end() const
{
    if (!m_end)
        m_end = m_series->end();
    return *m_end;
}

std::shared_ptr<SeriesBeginning> Appointment::beginning(VariantDate from) const
{
    if (m_beginning && m_beginning->from == from)
        return m_beginning;
    auto fresh = std::make_shared<SeriesBeginning>(SeriesBeginning{from, {}, SeriesWalk(*m_series, from)});
    if (m_beginning && m_beginning->from < from) {
        const auto &old = m_beginning->occurrences;
        const auto first =
            std::find_if(old.begin(), old.end(), [from](const Occurrence &one) { return one.start >= from; });
        if (first != old.end()) {
            fresh->occurrences.assign(first, old.end());
            fresh->rest = m_beginning->rest;
            fresh->isComplete = m_beginning->isComplete;
        }
    }
    m_beginning = fresh;
    return fresh;
}

OccurrenceWalk::OccurrenceWalk(std::shared_ptr<const Appointment> appointment, VariantDate from)
    : m_appointment(std::move(appointment))
    , m_from(from)
{
}

OccurrenceWalk::OccurrenceWalk(OccurrenceWalk &&other) noexcept = default;
OccurrenceWalk &OccurrenceWalk::operator=(OccurrenceWalk &&other) noexcept = default;
OccurrenceWalk::~OccurrenceWalk() = default;

std::optional<Occurrence> OccurrenceWalk::next()
{
    if (m_rest)
        return m_rest->next();
    if (!m_appointment->isRecurring()) {
        const Occurrence only = m_appointment->first();
        return m_index++ == 0 && only.start >= m_from ? std::optional(only) : std::nullopt;
    }
    if (!m_beginning)
        m_beginning = m_appointment->beginning(m_from);
    auto &known = m_beginning->occurrences;
    if (m_index < known.size())
        return known[m_index++];
    if (m_beginning->isComplete)
        return std::nullopt;
    if (m_index == SeriesBeginning::maxSize) {
        m_rest = std::make_unique<SeriesWalk>(m_beginning->rest);
        return m_rest->next();
    }
    auto occurrence = m_beginning->rest.next();
    if (occurrence) {
        known.push_back(*occurrence);
        ++m_index;
    } else {
        m_beginning->isComplete = true;
    }
    return occurrence;
}

namespace {

/// The events of one UID.
struct EventGroup
{
    Event::Ptr event;
    Event::List changes; ///< to single occurrences
};

bool hasStart(const Event &event)
{
    return movedOutOfGap(event.dtStart()).isValid();
}

/// Empty if each of the events says when it starts.
QString problemOf(const Event::List &events)
{
    constexpr int longestName = 100;
    const auto bad =
        std::find_if(events.begin(), events.end(), [](const Event::Ptr &event) { return !hasStart(*event); });
    if (bad == events.end())
        return QString();
    const QString uid = (*bad)->uid().simplified().left(longestName);
    return uid.isEmpty() ? QStringLiteral("an event does not say when it starts")
                         : QStringLiteral("the event %1 does not say when it starts").arg(uid);
}

std::vector<EventGroup> groupEvents(const Event::List &events)
{
    std::vector<EventGroup> groups;
    QHash<QString, std::size_t> groupOf;
    for (const Event::Ptr &event : events) {
        if (!hasStart(*event))
            continue;
        const auto known = event->uid().isEmpty() ? groupOf.end() : groupOf.find(event->uid());
        if (known == groupOf.end()) {
            groupOf.insert(event->uid(), groups.size());
            groups.emplace_back();
        }
        EventGroup &group = known == groupOf.end() ? groups.back() : groups[*known];
        if (event->hasRecurrenceId())
            group.changes.append(event);
        else if (!group.event || event->revision() > group.event->revision())
            group.event = event;
    }
    return groups;
}

} // namespace

FileItems readAppointments(const QByteArray &content)
{
    const CalendarFile file = readCalendarFile(content);
    FileItems result{{}, file.problem};
    const auto add = [&result](const Event &event, auto &&occurrences) {
        result.items.push_back(
            std::make_shared<Appointment>(event.uid(), std::forward<decltype(occurrences)>(occurrences)));
    };
    for (const EventGroup &group : groupEvents(file.events)) {
        if (!group.event) {
            for (const Event::Ptr &change : group.changes)
                add(*change, occurrenceOf(*change));
        } else if (group.event->recurs() || !group.changes.isEmpty()) {
            add(*group.event, std::make_unique<const EventSeries>(*group.event, group.changes));
        } else {
            add(*group.event, occurrenceOf(*group.event));
        }
    }
    if (result.problem.isEmpty())
        result.problem = problemOf(file.events);
    return result;
}

} // namespace platform
