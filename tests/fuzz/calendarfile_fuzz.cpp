#include "fuzz/target.h"

#include <platform/desktop/outlook/appointment.h>
#include <platform/desktop/outlook/task.h>

void tryInput(const QByteArray &content)
{
    using namespace platform;
    constexpr VariantDate from = 46'000.0;
    for (const auto &item : readAppointments(content).items) {
        const auto appointment = std::dynamic_pointer_cast<const Appointment>(item);
        appointment->first();
        appointment->end();
        OccurrenceWalk walk(appointment, from);
        for (int i = 0; i < 10; ++i) {
            const auto occurrence = walk.next();
            if (!occurrence)
                break;
            require(occurrence->start >= from, "a walk does not begin too early");
            require(!appointment->isRecurring() || i == 0 || occurrence->start < lastCalendarDay + 1
                        || occurrence->start == noDate,
                    "a series ends with the calendar");
        }
    }
    readTasks(content);
}
