#pragma once

#include <KCalendarCore/RecurrenceRule>

#include <QtCore/QDateTime>

#include <memory>
#include <optional>

namespace platform {

class ClockRule;

/// The dates that a recurrence rule makes. Rules by the day or longer go by the clocks of the series' time
/// zone: a date that these leave out is moved as movedOutOfGap() does, and counts. Shorter intervals are of
/// real time.
///
/// In time bounded however bad the rule is:
/// - A rule has no dates if one of its periods (a year, for FREQ=YEARLY) could hold more than 3,000 of them,
///   or if 3,000 years pass from one period to the next.
/// - 10,000 periods in a row without a date are taken for the end.
/// - A rule that counts more than 10,000 dates, and picks them by more than an interval, never ends.
/// - A rule whose last date makes no sense has no dates.
///
/// The library reads some rare rules in its own way: weeks and days of the year that are counted from the end
/// pick nothing beside others of their kind, nor do days of the month in rules by the week or by the hour,
/// and of a week that belongs to two years a day may be left out (BYWEEKNO).
class RecurrenceDates
{
public:
    /// @p start is that of the series, midnight UTC if it is made of whole days. If its time zone's clocks
    /// leave it out, it is invalid and has that zone and a date and time.
    RecurrenceDates(const KCalendarCore::RecurrenceRule &rule, const QDateTime &start, bool isAllDay);

    /// The first date after @p time. Invalid if there is none.
    QDateTime after(const QDateTime &time) const;

    /// The last date before @p time. Invalid if there is none.
    QDateTime before(const QDateTime &time) const;

    bool contains(const QDateTime &time) const;

    bool isEndless() const;

private:
    /// Dates that are so many seconds apart.
    struct Beat
    {
        qint64 interval = 1;
        std::optional<qint64> last; ///< number of the last, from 0; less if there is none
    };

    void makeBeat();
    void boundCount();
    QDateTime inZone(const QDateTime &time) const;
    QDateTime onClock(qint64 clock) const;
    qint64 clockOf(const QDateTime &time) const;
    qint64 clockChange(const QDateTime &time) const;
    QDateTime afterByClock(const QDateTime &time) const;
    QDateTime beforeByClock(const QDateTime &time) const;

    KCalendarCore::RecurrenceRule m_rule;
    QDateTime m_start;
    std::optional<Beat> m_beat;
    std::shared_ptr<const ClockRule> m_clockRule; ///< if its periods are days or longer
    bool m_isUsable = true;
};

} // namespace platform
