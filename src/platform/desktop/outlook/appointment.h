#pragma once

#include "platform/desktop/outlook/outlookitem.h"
#include "platform/pocketoutlook.h"

#include <optional>

namespace platform {

/// The end of the calendar, 31 December 2999: no occurrence of an endless series is later.
constexpr VariantDate lastCalendarDay = 401768.0;

/// One occurrence of an appointment, in the machine's time zone.
struct Occurrence
{
    VariantDate start = noDate;
    VariantDate end = noDate;
    QString subject;
};

class EventSeries;
class SeriesWalk;
struct SeriesBeginning;

/// An appointment, or a series of them with its moved and deleted occurrences. To be asked by one thread
/// only, which may be another than the one that made it.
class Appointment : public OutlookItem
{
public:
    Appointment(const QString &uid, const Occurrence &only);
    Appointment(const QString &uid, std::unique_ptr<const EventSeries> series);
    ~Appointment() override;

    /// Its only occurrence, or the first of a series. All-day ones begin and end at midnight.
    Occurrence first() const;
    bool isRecurring() const { return m_series != nullptr; }

    /// When it is over: of a series, the end of its last occurrence, and lastCalendarDay if it never ends.
    VariantDate end() const;

private:
    friend class OccurrenceWalk;

    std::shared_ptr<SeriesBeginning> beginning(VariantDate from) const;

    const std::unique_ptr<const EventSeries> m_series; ///< null if there is only one occurrence
    mutable std::optional<Occurrence> m_first;
    mutable std::optional<VariantDate> m_end;
    mutable std::shared_ptr<SeriesBeginning> m_beginning; ///< of the last walk
};

/// Goes through the occurrences of an appointment in order of their starts, none of which is worked out
/// before it is asked for. It gets on quickly, however bad the rules of the series are, as RecurrenceDates,
/// EventSeries and SeriesWalk have bounds.
class OccurrenceWalk
{
public:
    /// Begins with the first occurrence that starts at @p from or later. Making the same walk again, or one
    /// from a little later on, is fast: an appointment remembers the first occurrences of the last walk.
    OccurrenceWalk(std::shared_ptr<const Appointment> appointment, VariantDate from);
    OccurrenceWalk(OccurrenceWalk &&other) noexcept;
    OccurrenceWalk &operator=(OccurrenceWalk &&other) noexcept;
    ~OccurrenceWalk();

    /// Nothing at the end.
    std::optional<Occurrence> next();

private:
    std::shared_ptr<const Appointment> m_appointment;
    VariantDate m_from;
    std::shared_ptr<SeriesBeginning> m_beginning; ///< once it is asked for
    std::size_t m_index = 0;
    std::unique_ptr<SeriesWalk> m_rest; ///< behind the beginning
};

/// Reads the events of an iCalendar file (RFC 5545); see ItemReader.
FileItems readAppointments(const QByteArray &content);

} // namespace platform
