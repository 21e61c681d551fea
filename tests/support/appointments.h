#pragma once

#include "platform/desktop/outlook/appointment.h"
#include "platform/desktop/outlook/variantdate.h"

#include <QtCore/QDateTime>

#include <gmock/gmock.h>

/// "2026-03-01 12:30:00".
inline QString textOf(platform::VariantDate date)
{
    const auto time = platform::toSystemTime(date);
    if (!time || date == platform::noDate)
        return QStringLiteral("none");
    return QString::asprintf("%04d-%02d-%02d %02d:%02d:%02d", time->year, time->month, time->day, time->hour,
                             time->minute, time->second);
}

inline platform::VariantDate dateOf(const char *text)
{
    return platform::toVariantDate(QDateTime::fromString(QLatin1String(text), Qt::ISODate));
}

inline QByteArray calendarOf(const QByteArray &entries)
{
    return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Example//EN\r\n" + entries + "END:VCALENDAR\r\n";
}

inline QByteArray eventOf(const QByteArray &lines)
{
    return "BEGIN:VEVENT\r\nUID:one\r\nSUMMARY:Event\r\n" + lines + "\r\nEND:VEVENT\r\n";
}

inline std::shared_ptr<const platform::Appointment> appointmentOf(const QByteArray &events)
{
    const platform::FileItems file = platform::readAppointments(calendarOf(events));
    EXPECT_EQ(file.problem, QString());
    EXPECT_EQ(file.items.size(), 1U) << events.constData();
    return file.items.empty() ? nullptr
                              : std::dynamic_pointer_cast<const platform::Appointment>(file.items.front());
}

/// "2026-03-01 12:30:00" of at most @p count occurrences, with the subject if it is not "Event".
inline std::vector<std::string> startsOf(const std::shared_ptr<const platform::Appointment> &appointment,
                                         const char *from, int count)
{
    std::vector<std::string> starts;
    platform::OccurrenceWalk walk(appointment, dateOf(from));
    for (int i = 0; i < count; ++i) {
        const auto occurrence = walk.next();
        if (!occurrence)
            break;
        const QString subject =
            occurrence->subject == QLatin1String("Event") ? QString() : occurrence->subject;
        starts.push_back((textOf(occurrence->start) + QLatin1Char(' ') + subject).trimmed().toStdString());
    }
    return starts;
}
