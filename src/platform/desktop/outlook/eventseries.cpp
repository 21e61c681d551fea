#include "platform/desktop/outlook/eventseries.h"
#include "platform/desktop/outlook/calendarfile.h"
#include "platform/desktop/outlook/variantdate.h"

#include <KCalendarCore/Recurrence>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

using KCalendarCore::Event;
using KCalendarCore::Recurrence;

constexpr std::size_t maxRules = 16;
constexpr std::size_t maxParts = 100;
constexpr int maxExcludedInRow = 20000;
const QTime midnight(0, 0);

/// Midnight even on days on which the machine's clocks leave it out.
VariantDate startOf(QDate day)
{
    static const QDate dayZero(1899, 12, 30);
    return static_cast<VariantDate>(dayZero.daysTo(day));
}

QDateTime asUtc(const QDateTime &moment)
{
    return QDateTime(moment.date(), moment.time(), Qt::UTC);
}

/// The later one of those that are valid. Invalid ones would be taken for 1970.
QDateTime later(const QDateTime &left, const QDateTime &right)
{
    if (!left.isValid() || !right.isValid())
        return left.isValid() ? left : right;
    return std::max(left, right);
}

bool startsEarlier(const Occurrence &left, const Occurrence &right)
{
    return left.start < right.start;
}

} // namespace

EventSpan EventSpan::of(const Event &event)
{
    if (event.allDay())
        return {std::max<qint64>(event.dtStart().date().daysTo(event.dtEnd().date()) + 1, 1), 0};
    if (!event.hasDuration())
        return {0, std::max<qint64>(movedOutOfGap(event.dtStart()).secsTo(event.dtEnd()), 0)};
    const KCalendarCore::Duration duration = event.duration();
    return duration.isDaily() ? EventSpan{std::max(duration.asDays(), 0), 0}
                              : EventSpan{0, std::max(duration.asSeconds(), 0)};
}

Occurrence occurrenceOf(const Event &event)
{
    const QDateTime start = movedOutOfGap(event.dtStart());
    const EventSpan span = EventSpan::of(event);
    if (event.allDay())
        return {startOf(start.date()), startOf(start.date().addDays(span.days)), event.summary()};
    return {toVariantDate(start), toVariantDate(start.addDays(span.days).addSecs(span.seconds)),
            event.summary()};
}

EventSeries::EventSeries(const Event &event, const Event::List &changes)
    : m_isAllDay(event.allDay())
    , m_start(normalised(event.dtStart()))
    , m_parts{{QDateTime(), 0, EventSpan::of(event), event.summary()}}
{
    const Recurrence *recurrence = event.recurrence();
    readRules(*recurrence, m_isAllDay ? m_start : event.dtStart());
    readDates(*recurrence);
    for (const Event::Ptr &change : changes)
        readChange(*change);
    std::sort(m_parts.begin() + 1, m_parts.end(),
              [](const Part &left, const Part &right) { return left.since < right.since; });
    std::stable_sort(m_moved.begin(), m_moved.end(), startsEarlier);
}

void EventSeries::readRules(const Recurrence &recurrence, const QDateTime &start)
{
    const auto read = [this, &start](const KCalendarCore::RecurrenceRule::List &from, auto &to) {
        for (const KCalendarCore::RecurrenceRule *rule : from) {
            if (to.size() < maxRules)
                to.emplace_back(*rule, start, m_isAllDay);
        }
    };
    read(recurrence.rRules(), m_rules);
    read(recurrence.exRules(), m_exceptionRules);
}

void EventSeries::readDates(const Recurrence &recurrence)
{
    m_dates.push_back(m_start);
    for (const QDate date : recurrence.rDates())
        m_dates.push_back(onDay(date));
    for (const QDateTime &moment : recurrence.rDateTimes()) {
        const KCalendarCore::Period period = recurrence.rDateTimePeriod(moment);
        if (period.isValid() && !m_isAllDay) {
            m_moved.push_back(
                {toVariantDate(period.start()), toVariantDate(period.end()), m_parts.front().subject});
            m_excludedMoments.insert(moment.toMSecsSinceEpoch());
        } else {
            m_dates.push_back(normalised(moment));
        }
    }
    std::sort(m_dates.begin(), m_dates.end());
    for (const QDate date : recurrence.exDates())
        m_excludedDays.insert(date);
    for (const QDateTime &moment : recurrence.exDateTimes())
        m_excludedMoments.insert(normalised(moment).toMSecsSinceEpoch());
}

void EventSeries::readChange(const Event &change)
{
    const QDateTime original = change.recurrenceId();
    if (change.thisAndFuture() && m_parts.size() <= maxParts && change.allDay() == m_isAllDay)
        return addPart(change);
    // A date may stand for the occurrence of that day.
    const bool isDay = original.timeSpec() == Qt::LocalTime && original.time() == midnight;
    if (isDay && m_start.timeSpec() != Qt::LocalTime)
        m_excludedDays.insert(original.date());
    else
        m_excludedMoments.insert(normalised(original).toMSecsSinceEpoch());
    m_moved.push_back(occurrenceOf(change));
}

void EventSeries::addPart(const Event &change)
{
    Part part;
    part.since = normalised(change.recurrenceId());
    QDateTime start = normalised(change.dtStart());
    QDateTime original = part.since;
    if (m_start.timeSpec() == Qt::TimeZone) {
        start = start.toTimeZone(m_start.timeZone());
        original = original.toTimeZone(m_start.timeZone());
    }
    part.shift = asUtc(original).secsTo(asUtc(start));
    part.span = EventSpan::of(change);
    part.subject = change.summary();
    m_parts.push_back(part);
}

QDateTime EventSeries::normalised(const QDateTime &moment) const
{
    return m_isAllDay ? QDateTime(moment.date(), midnight, Qt::UTC) : movedOutOfGap(moment);
}

QDateTime EventSeries::onDay(QDate date) const
{
    QDateTime moment = m_start;
    moment.setDate(date);
    return movedOutOfGap(moment);
}

QDateTime EventSeries::shifted(const QDateTime &moment, qint64 seconds) const
{
    if (seconds == 0)
        return moment;
    const QDateTime clock = asUtc(moment).addSecs(seconds);
    QDateTime result = moment;
    result.setDate(clock.date());
    result.setTime(clock.time());
    return movedOutOfGap(result);
}

bool EventSeries::isExcluded(const QDateTime &original) const
{
    return m_excludedMoments.contains(original.toMSecsSinceEpoch())
        || (!m_excludedDays.isEmpty() && m_excludedDays.contains(original.date()))
        || std::any_of(m_exceptionRules.begin(), m_exceptionRules.end(),
                       [&original](const RecurrenceDates &rule) { return rule.contains(original); });
}

Occurrence EventSeries::occurrence(const QDateTime &original, const Part &part) const
{
    const QDateTime start = shifted(original, part.shift);
    const QDateTime end = start.addDays(part.span.days).addSecs(part.span.seconds);
    if (m_isAllDay)
        return {startOf(start.date()), startOf(end.date()), part.subject};
    return {toVariantDate(start), toVariantDate(end), part.subject};
}

VariantDate EventSeries::end() const
{
    if (std::any_of(m_rules.begin(), m_rules.end(), [](const auto &rule) { return rule.isEndless(); }))
        return lastCalendarDay;
    VariantDate end = beginning().start;
    for (const Occurrence &moved : m_moved)
        end = std::max(end, moved.end);
    QDateTime until;
    for (auto part = m_parts.rbegin(); part != m_parts.rend(); ++part) {
        const QDateTime last = lastDate(*part, until);
        if (last.isValid())
            end = std::max(end, occurrence(last, *part).end);
        until = part->since;
    }
    return std::min(end, lastCalendarDay);
}

QDateTime EventSeries::lastDate(const Part &part, const QDateTime &until) const
{
    static const QDateTime endOfCalendar(QDate(3000, 1, 1), midnight, Qt::UTC);
    QDateTime before = until.isValid() ? until : endOfCalendar;
    for (int tries = 0; tries < maxExcludedInRow; ++tries) {
        QDateTime last;
        for (const RecurrenceDates &rule : m_rules)
            last = later(last, rule.before(before));
        const auto date = std::lower_bound(m_dates.begin(), m_dates.end(), before);
        if (date != m_dates.begin())
            last = later(last, *std::prev(date));
        if (!last.isValid() || (part.since.isValid() && last < part.since))
            return {};
        if (!isExcluded(last))
            return last;
        before = last;
    }
    return {};
}

SeriesWalk::SeriesWalk(const EventSeries &series, VariantDate from)
    : m_series(&series)
    , m_from(from)
{
}

std::optional<Occurrence> SeriesWalk::next()
{
    if (!m_hasBegun)
        begin();
    PartWalk *first = nullptr;
    for (PartWalk &walk : m_parts) {
        if (walk.occurrence && (!first || startsEarlier(*walk.occurrence, *first->occurrence)))
            first = &walk;
    }
    const auto &moved = m_series->m_moved;
    if (m_moved < moved.size() && (!first || startsEarlier(moved[m_moved], *first->occurrence)))
        return moved[m_moved++];
    if (!first)
        return std::nullopt;
    std::optional<Occurrence> occurrence = first->occurrence;
    advance(*first);
    return occurrence;
}

void SeriesWalk::begin()
{
    m_hasBegun = true;
    m_parts.resize(m_series->m_parts.size());
    for (std::size_t i = 0; i < m_parts.size(); ++i) {
        m_parts[i].part = i;
        begin(m_parts[i]);
    }
    const auto &moved = m_series->m_moved;
    const auto first =
        std::lower_bound(moved.begin(), moved.end(), Occurrence{m_from, m_from, QString()}, startsEarlier);
    m_moved = static_cast<std::size_t>(first - moved.begin());
}

void SeriesWalk::begin(PartWalk &walk) const
{
    const EventSeries::Part &part = m_series->m_parts[walk.part];
    // The clock may show an hour twice, and another hour in the series' time zone.
    const int margin = part.shift == 0 ? 3600 : 2 * 3600;
    static const QDate dayZero(1899, 12, 30);
    const double day = std::trunc(std::clamp(m_from, firstDay, lastCalendarDay + 1));
    const QDateTime from(dayZero.addDays(static_cast<qint64>(day)), midnight,
                         m_series->m_isAllDay ? Qt::UTC : Qt::LocalTime);
    const double timeOfDay = std::clamp(std::abs(m_from - std::trunc(m_from)), 0.0, 1.0);
    QDateTime before = from.addSecs(static_cast<qint64>(timeOfDay * 86400) - margin - part.shift);
    if (part.since.isValid())
        before = later(before, part.since.addMSecs(-1));
    for (const RecurrenceDates &rule : m_series->m_rules)
        walk.heads.push_back(rule.after(before));
    const auto &dates = m_series->m_dates;
    walk.date =
        static_cast<std::size_t>(std::upper_bound(dates.begin(), dates.end(), before) - dates.begin());
    advance(walk);
}

void SeriesWalk::advance(PartWalk &walk) const
{
    const auto &parts = m_series->m_parts;
    const QDateTime until = walk.part + 1 < parts.size() ? parts[walk.part + 1].since : QDateTime();
    walk.occurrence.reset();
    for (int tries = 0; tries < maxExcludedInRow; ++tries) {
        const QDateTime date = takeDate(walk);
        if (!date.isValid() || (until.isValid() && date >= until))
            return;
        if (m_series->isExcluded(date))
            continue;
        const Occurrence occurrence = m_series->occurrence(date, parts[walk.part]);
        if (occurrence.start >= lastCalendarDay + 1)
            return;
        if (occurrence.start >= m_from) {
            walk.occurrence = occurrence;
            return;
        }
    }
}

QDateTime SeriesWalk::takeDate(PartWalk &walk) const
{
    QDateTime date;
    const auto &dates = m_series->m_dates;
    if (walk.date < dates.size())
        date = dates[walk.date];
    for (const QDateTime &head : walk.heads) {
        if (head.isValid() && (!date.isValid() || head < date))
            date = head;
    }
    if (!date.isValid())
        return date;
    while (walk.date < dates.size() && dates[walk.date] <= date)
        ++walk.date;
    for (std::size_t i = 0; i < walk.heads.size(); ++i) {
        if (walk.heads[i].isValid() && walk.heads[i] <= date)
            walk.heads[i] = m_series->m_rules[i].after(date);
    }
    return date;
}

} // namespace platform
