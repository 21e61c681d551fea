#include "platform/desktop/outlook/recurrencedates.h"
#include "platform/desktop/outlook/calendarfile.h"

#include <QtCore/QTimeZone>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace platform {

namespace {

using KCalendarCore::RecurrenceRule;

constexpr qint64 day = 86400;
constexpr qint64 longestInterval = day * 366 * 3000;
constexpr qint64 maxDatesInPeriod = 3000;
constexpr int maxCount = 10000;

/// In the order of RecurrenceRule::PeriodType.
struct Period
{
    qint64 seconds;
    qint64 days;
};
constexpr std::array<Period, 8> periods = {
    {{1, 1}, {1, 1}, {60, 1}, {3600, 1}, {day, 1}, {7 * day, 7}, {31 * day, 31}, {366 * day, 366}}};

const Period &periodOf(const RecurrenceRule &rule)
{
    return periods[std::min<std::size_t>(rule.recurrenceType(), periods.size() - 1)];
}

qint64 intervalOf(const RecurrenceRule &rule)
{
    return periodOf(rule).seconds * std::max<qint64>(rule.frequency(), 1);
}

bool picksDays(const RecurrenceRule &rule)
{
    return !rule.byDays().isEmpty() || !rule.byMonthDays().isEmpty() || !rule.byYearDays().isEmpty()
        || !rule.byWeekNumbers().isEmpty();
}

bool picksTimes(const RecurrenceRule &rule)
{
    return !rule.bySeconds().isEmpty() || !rule.byMinutes().isEmpty() || !rule.byHours().isEmpty();
}

bool picksAny(const RecurrenceRule &rule)
{
    return picksDays(rule) || picksTimes(rule) || !rule.byMonths().isEmpty() || !rule.bySetPos().isEmpty();
}

qint64 mostDatesInPeriod(const RecurrenceRule &rule)
{
    qint64 most = picksDays(rule) ? periodOf(rule).days : std::max(rule.byMonths().size(), 1);
    for (const auto &times : {rule.byHours(), rule.byMinutes(), rule.bySeconds()})
        most *= std::max(times.size(), 1);
    return most;
}

/// The end that a rule names. The library takes one without a zone to be in the machine's, and not in that of
/// the start.
QDateTime lastMoment(const RecurrenceRule &rule, const QDateTime &start, bool isAllDay)
{
    const QString name = QStringLiteral("UNTIL=");
    const QString text = rule.rrule().section(name, 1).section(QLatin1Char(';'), 0, 0);
    const bool hasZone = text.endsWith(QLatin1Char('Z'));
    const QDateTime end = hasZone ? rule.endDt().toUTC() : rule.endDt().toLocalTime();
    if (isAllDay)
        return QDateTime(end.date(), QTime(0, 0), Qt::UTC);
    return hasZone ? end : QDateTime(end.date(), end.time(), start.timeZone());
}

qint64 clockAt(QDate date)
{
    static const QDate dayZero(1970, 1, 1);
    return dayZero.daysTo(date) * day;
}

qint64 clockAt(const QDateTime &time)
{
    return clockAt(time.date()) + QTime(0, 0).secsTo(time.time());
}

/// A last date that makes no sense would leave the rule without an end.
bool hasBadEnd(const RecurrenceRule &rule)
{
    return rule.duration() < 0 && rule.rrule().contains(QLatin1String("UNTIL="));
}

/// The library picks days of the month in a year only if it is told the months, and those counted from the
/// end only out of months.
void writeAsLibraryReads(RecurrenceRule &rule)
{
    const QList<int> days = rule.byMonthDays();
    const bool isCountedFromEnd =
        std::any_of(days.begin(), days.end(), [](int number) { return number < 0; });
    const bool picksOtherDays =
        !rule.byDays().isEmpty() || !rule.byYearDays().isEmpty() || !rule.byWeekNumbers().isEmpty();
    if (rule.recurrenceType() == RecurrenceRule::rYearly && !days.isEmpty() && !picksOtherDays
        && rule.byMonths().isEmpty())
        rule.setByMonths({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
    else if (rule.recurrenceType() == RecurrenceRule::rDaily && isCountedFromEnd && rule.frequency() <= 1
             && rule.bySetPos().isEmpty())
        rule.setRecurrenceType(RecurrenceRule::rMonthly);
}

} // namespace

/// The dates of a rule in seconds on a clock that is never changed.
class ClockRule
{
public:
    ClockRule(const RecurrenceRule &rule, qint64 start, std::optional<qint64> last)
        : m_rule(rule)
    {
        m_rule.setReadOnly(false);
        m_rule.setStartDt(toTime(start));
        if (last)
            m_rule.setEndDt(toTime(*last));
        writeAsLibraryReads(m_rule);
    }

    std::optional<qint64> after(qint64 time) const
    {
        if (m_noneAfter && time >= *m_noneAfter)
            return std::nullopt;
        // Where a week belongs to two years the library may go back, and would do so for good.
        for (qint64 from = time; from <= time + longestStepBack; from += day) {
            const QDateTime next = m_rule.getNextDate(toTime(from));
            if (!next.isValid())
                break;
            if (next > toTime(time))
                return next.toSecsSinceEpoch();
        }
        m_noneAfter = time; // the library looks far ahead, and would do so each time
        return std::nullopt;
    }

    std::optional<qint64> before(qint64 time) const
    {
        for (qint64 from = time; from >= time - longestStepBack; from -= day) {
            const QDateTime previous = m_rule.getPreviousDate(toTime(from));
            if (!previous.isValid())
                break;
            if (previous < toTime(time))
                return previous.toSecsSinceEpoch();
        }
        return std::nullopt;
    }

private:
    static constexpr qint64 longestStepBack = 31 * day;

    static QDateTime toTime(qint64 clock) { return QDateTime::fromSecsSinceEpoch(clock, Qt::UTC); }

    RecurrenceRule m_rule;
    mutable std::optional<qint64> m_noneAfter; ///< none are later than this
};

RecurrenceDates::RecurrenceDates(const RecurrenceRule &rule, const QDateTime &start, bool isAllDay)
    : m_rule(rule)
    , m_start(movedOutOfGap(start))
{
    m_rule.setReadOnly(false);
    m_rule.setStartDt(m_start);
    m_rule.setAllDay(isAllDay);
    if (m_rule.duration() == 0)
        m_rule.setEndDt(lastMoment(rule, m_start, isAllDay));
    m_isUsable = m_rule.recurrenceType() != RecurrenceRule::rNone && intervalOf(m_rule) < longestInterval
        && mostDatesInPeriod(m_rule) <= maxDatesInPeriod && !hasBadEnd(rule);
    if (!m_isUsable)
        return;
    if (!picksAny(m_rule) && m_rule.recurrenceType() <= RecurrenceRule::rHourly)
        makeBeat();
    else if (m_rule.duration() > maxCount)
        boundCount();
    if (m_rule.recurrenceType() >= RecurrenceRule::rDaily) {
        const auto last = m_rule.duration() == 0 ? std::optional(clockOf(m_rule.endDt())) : std::nullopt;
        m_clockRule = std::make_shared<const ClockRule>(m_rule, clockAt(start), last);
    }
}

/// The library would leave out every other second.
void RecurrenceDates::makeBeat()
{
    m_beat = Beat{intervalOf(m_rule), std::nullopt};
    if (m_rule.duration() > 0)
        m_beat->last = m_rule.duration() - 1;
    else if (m_rule.duration() == 0)
        m_beat->last = m_rule.endDt() < m_start ? -1 : m_start.secsTo(m_rule.endDt()) / m_beat->interval;
}

/// The library would list all dates up to the end, and give up after some.
void RecurrenceDates::boundCount()
{
    const qint64 days = intervalOf(m_rule) / day * (m_rule.duration() - 1);
    const bool isFarOff = days > longestInterval / day || m_rule.recurrenceType() > RecurrenceRule::rWeekly;
    if (picksAny(m_rule) || isFarOff)
        m_rule.setDuration(-1);
    else
        m_rule.setEndDt(m_start.addDays(days));
}

QDateTime RecurrenceDates::inZone(const QDateTime &time) const
{
    // Times without a zone go by the machine's, even when it has become another.
    return m_start.timeSpec() == Qt::LocalTime ? time.toLocalTime() : time.toTimeZone(m_start.timeZone());
}

QDateTime RecurrenceDates::onClock(qint64 clock) const
{
    QDateTime time = QDateTime::fromSecsSinceEpoch(clock, Qt::UTC);
    if (m_start.timeSpec() == Qt::UTC)
        return time;
    if (m_start.timeSpec() != Qt::LocalTime)
        return movedOutOfGap(QDateTime(time.date(), time.time(), m_start.timeZone()));
    const QDateTime local(time.date(), time.time());
    return local.isValid()
        ? local
        : movedOutOfGap(QDateTime(time.date(), time.time(), QTimeZone::systemTimeZone())).toLocalTime();
}

qint64 RecurrenceDates::clockOf(const QDateTime &time) const
{
    return clockAt(m_start.timeSpec() == Qt::UTC ? time.toUTC() : inZone(time));
}

/// By how many seconds the clocks are changed around that time.
qint64 RecurrenceDates::clockChange(const QDateTime &time) const
{
    if (m_start.timeSpec() == Qt::UTC)
        return 0;
    return std::abs(inZone(time.addDays(1)).offsetFromUtc() - inZone(time.addDays(-1)).offsetFromUtc());
}

/// The first date on the clocks need not be the first in time.
QDateTime RecurrenceDates::afterByClock(const QDateTime &time) const
{
    QDateTime first;
    qint64 end = 0;
    auto clock = m_clockRule->after(clockOf(time) - clockChange(time));
    while (clock && (!first.isValid() || *clock < end)) {
        const QDateTime date = onClock(*clock);
        if (date > time && (!first.isValid() || date < first)) {
            first = date;
            end = clockOf(first);
        }
        clock = end == *clock ? std::nullopt : m_clockRule->after(*clock);
    }
    return first;
}

QDateTime RecurrenceDates::beforeByClock(const QDateTime &time) const
{
    auto clock = m_clockRule->before(clockOf(time) + clockChange(time) + 1);
    while (clock && onClock(*clock) >= time)
        clock = m_clockRule->before(*clock);
    return clock ? onClock(*clock) : QDateTime();
}

QDateTime RecurrenceDates::after(const QDateTime &time) const
{
    if (!m_isUsable)
        return {};
    if (m_clockRule)
        return afterByClock(time);
    if (!m_beat) {
        const QDateTime next = m_rule.getNextDate(time);
        return next > time ? next : QDateTime();
    }
    const qint64 seconds = m_start.secsTo(time);
    const qint64 number = time < m_start ? 0 : seconds / m_beat->interval + 1;
    return m_beat->last && number > *m_beat->last ? QDateTime() : m_start.addSecs(number * m_beat->interval);
}

QDateTime RecurrenceDates::before(const QDateTime &time) const
{
    if (!m_isUsable)
        return {};
    if (m_clockRule)
        return beforeByClock(time);
    if (!m_beat) {
        const QDateTime previous = m_rule.getPreviousDate(time);
        return previous < time ? previous : QDateTime();
    }
    if (time <= m_start)
        return {};
    const qint64 number = (m_start.secsTo(time) - 1) / m_beat->interval;
    const qint64 last = std::min(number, m_beat->last.value_or(number));
    return last < 0 ? QDateTime() : m_start.addSecs(last * m_beat->interval);
}

bool RecurrenceDates::contains(const QDateTime &time) const
{
    return after(time.addSecs(-1)) == time;
}

bool RecurrenceDates::isEndless() const
{
    return m_isUsable && (m_beat ? !m_beat->last : m_rule.duration() < 0);
}

} // namespace platform
