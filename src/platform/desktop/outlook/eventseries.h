#pragma once

#include "platform/desktop/outlook/appointment.h"
#include "platform/desktop/outlook/recurrencedates.h"

#include <KCalendarCore/Event>

#include <QtCore/QSet>

namespace platform {

/// The span of an occurrence: days count as such, even if the clocks are changed in one.
struct EventSpan
{
    qint64 days = 0;
    qint64 seconds = 0;

    static EventSpan of(const KCalendarCore::Event &event);
};

/// The one occurrence of an event of which nothing is repeated.
Occurrence occurrenceOf(const KCalendarCore::Event &event);

/// A recurring event with its changed occurrences. The bounds of RecurrenceDates hold; of rules, only the
/// first 16 count, and of changes to all later occurrences, the first 100.
class EventSeries
{
public:
    /// @p changes have a RECURRENCE-ID, each that of an occurrence, or of the first of those that it changes.
    EventSeries(const KCalendarCore::Event &event, const KCalendarCore::Event::List &changes);

    /// When the series begins, if none of its occurrences is left.
    Occurrence beginning() const { return occurrence(m_start, m_parts.front()); }

    /// See Appointment::end().
    VariantDate end() const;

private:
    friend class SeriesWalk;

    /// What becomes of the occurrences from one on.
    struct Part
    {
        QDateTime since; ///< invalid for the first part
        qint64 shift = 0; ///< by how many seconds on the clock they are moved
        EventSpan span;
        QString subject;
    };

    void readRules(const KCalendarCore::Recurrence &recurrence, const QDateTime &start);
    void readDates(const KCalendarCore::Recurrence &recurrence);
    void readChange(const KCalendarCore::Event &change);
    void addPart(const KCalendarCore::Event &change);

    QDateTime normalised(const QDateTime &moment) const;
    QDateTime onDay(QDate date) const;
    QDateTime shifted(const QDateTime &moment, qint64 seconds) const;
    bool isExcluded(const QDateTime &original) const;
    Occurrence occurrence(const QDateTime &original, const Part &part) const;
    QDateTime lastDate(const Part &part, const QDateTime &until) const;

    bool m_isAllDay;
    QDateTime m_start;
    std::vector<RecurrenceDates> m_rules;
    std::vector<RecurrenceDates> m_exceptionRules;
    std::vector<QDateTime> m_dates; ///< in order: the start, and single dates
    QSet<qint64> m_excludedMoments; ///< in milliseconds since 1970
    QSet<QDate> m_excludedDays;
    std::vector<Part> m_parts; ///< in order
    std::vector<Occurrence> m_moved; ///< in order of their starts
};

/// Goes through the occurrences of a series in order of their starts. 20,000 excluded ones in a row are taken
/// for the end, as is the end of the calendar.
class SeriesWalk
{
public:
    /// Begins with the first occurrence that starts at @p from or later. The series has to live as long.
    SeriesWalk(const EventSeries &series, VariantDate from);

    /// Nothing at the end.
    std::optional<Occurrence> next();

private:
    /// Goes through the occurrences of one part.
    struct PartWalk
    {
        std::size_t part = 0;
        std::vector<QDateTime> heads; ///< the next date of each rule
        std::size_t date = 0;
        std::optional<Occurrence> occurrence;
    };

    void begin();
    void begin(PartWalk &walk) const;
    void advance(PartWalk &walk) const;
    QDateTime takeDate(PartWalk &walk) const;

    const EventSeries *m_series;
    VariantDate m_from;
    bool m_hasBegun = false;
    std::vector<PartWalk> m_parts;
    std::size_t m_moved = 0;
};

} // namespace platform
