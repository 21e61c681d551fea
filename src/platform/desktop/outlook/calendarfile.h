#pragma once

#include <KCalendarCore/Event>
#include <KCalendarCore/Todo>

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QString>

namespace platform {

/// The largest calendar that is read, in bytes.
constexpr int maxCalendarFileSize = 8 * 1024 * 1024;

/// The entries of an iCalendar file, in its order. One that the file gives no UID has none.
struct CalendarFile
{
    KCalendarCore::Event::List events;
    KCalendarCore::Todo::List todos;
    QString problem; ///< empty, or why the file cannot be read, in plain words
};

/// Reads any bytes. What would keep the library busy for minutes, or make it run out of stack, is a problem:
/// files of more than maxCalendarFileSize, 50,000 components, 50 time zones or 200 rules in these, lines of
/// more than 512 KiB, components deep inside each other, time zones whose rules are more than yearly, and
/// rules whose lists (BYMONTH, BYHOUR, ...) make more than 500 combinations. Any thread.
///
/// A time zone that has no component of its own may have a name of Windows. Times that the clocks leave out
/// are moved as movedOutOfGap() does, but for the start of an event, which stays invalid with its date, time
/// and zone.
CalendarFile readCalendarFile(const QByteArray &content);

/// A moment whose date and time the clocks of its zone leave out is counted on from before the gap: 2:30 is
/// 3:30 then. Any other is returned as it is.
QDateTime movedOutOfGap(const QDateTime &moment);

} // namespace platform
