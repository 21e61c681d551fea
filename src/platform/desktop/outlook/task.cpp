#include "platform/desktop/outlook/task.h"
#include "platform/desktop/outlook/calendarfile.h"
#include "platform/desktop/outlook/variantdate.h"

#include <cmath>

namespace platform {

namespace {

using KCalendarCore::Todo;

/// The day on the machine's clocks.
VariantDate dayOf(const QDateTime &moment)
{
    return moment.isValid() ? std::floor(toVariantDate(moment)) : noDate;
}

QDateTime dueDateOf(const Todo &todo)
{
    if (todo.hasDueDate() || !todo.hasStartDate() || !todo.hasDuration())
        return todo.dtDue(true);
    return todo.duration().end(todo.dtStart(true));
}

} // namespace

FileItems readTasks(const QByteArray &content)
{
    const CalendarFile file = readCalendarFile(content);
    FileItems result{{}, file.problem};
    for (const Todo::Ptr &todo : file.todos) {
        const auto task = std::make_shared<Task>(todo->uid());
        task->subject = todo->summary();
        task->startDate = dayOf(todo->dtStart(true));
        task->dueDate = dayOf(dueDateOf(*todo));
        // Having done all of it does not make a task complete for other programs, either.
        task->isComplete = todo->hasCompletedDate() || todo->status() == Todo::StatusCompleted
            || todo->status() == Todo::StatusCanceled;
        result.items.push_back(task);
    }
    return result;
}

} // namespace platform
