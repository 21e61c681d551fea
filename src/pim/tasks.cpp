#include "orvanecore/functionarguments.h"
#include "orvanecore/iapplication.h"
#include "pim/arguments.h"
#include "pim/outlookdates.h"
#include "pim/records.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

#include <QtCore/QMutexLocker>

using platform::IPOutlookItemCollection;
using platform::ITask;

namespace {

/// How the due dates that @p filter asks for compare with today.
QString dueOperator(const QString &filter)
{
    if (filter == QLatin1String("Overdued"))
        return QStringLiteral("<");
    if (filter == QLatin1String("NotDued"))
        return QStringLiteral(">=");
    return QStringLiteral("=");
}

/// Tasks that are not done, as @p filter wants them; null if the store fails.
std::unique_ptr<IPOutlookItemCollection> openTasks(platform::IPOutlookApp &outlook, const QString &filter)
{
    const auto today = static_cast<quint32>(currentDate(outlook));
    const QString query =
        QStringLiteral("[DueDate] %1 <%2.00 AND [Complete] = FALSE").arg(dueOperator(filter)).arg(today);
    const auto folder = outlook.GetDefaultFolder(platform::OutlookFolder::Tasks);
    const auto items = folder ? folder->get_Items() : nullptr;
    return items ? items->Restrict(query.toStdU16String()) : nullptr;
}

/// Nothing if the store fails.
std::optional<Record> taskAt(IPOutlookItemCollection &tasks, int index, const DateTexts &texts)
{
    const auto item = tasks.Item(index);
    auto *const task = dynamic_cast<ITask *>(item.get());
    if (!task)
        return std::nullopt;
    const auto subject = task->get_Subject();
    const auto startDate = texts.date(task->get_StartDate());
    const auto dueDate = texts.date(task->get_DueDate());
    if (!subject || !startDate || !dueDate)
        return std::nullopt;
    return Record{
        {"subject", QString::fromStdU16String(*subject)}, {"startDate", *startDate}, {"dueDate", *dueDate}};
}

/// As many as there are, but less than @p count: scripts know that it is one more than the largest number.
std::vector<Record> findTasks(platform::IPOutlookApp &outlook, const QString &filter, int count,
                              bool byStartDate, const DateTexts &texts)
{
    std::vector<Record> found;
    const auto tasks = openTasks(outlook, filter);
    const int foundCount = tasks ? tasks->get_Count().value_or(0) : 0;
    if (foundCount > 0)
        tasks->Sort(byStartDate ? u"StartDate" : u"DueDate", !byStartDate);
    for (int i = 1; i <= foundCount && i < count; ++i) {
        std::optional<Record> next = taskAt(*tasks, i, texts);
        if (!next)
            break;
        found.push_back(std::move(*next));
    }
    return found;
}

} // namespace

void KestCommandProvider::getTasks(FunctionArguments *arguments)
{
    const bool isValid = argumentsMatch(*arguments, {2, 6, {ArgumentType::Object, ArgumentType::Function}});
    if (!checkOutlookCall("getTasks", isValid))
        return;
    const bool byStartDate = boolOr(*arguments, 5, true);
    const QString dateFormat = textOr(*arguments, 4, QStringLiteral("MM/dd/yyyy"));
    const int count = numberOr(*arguments, 3, 100);
    const QString filter = textOr(*arguments, 2, QString());

    QMutexLocker lock(&m_poomMutex);
    const std::vector<Record> found =
        findTasks(*m_outlook, filter, count, byStartDate, DateTexts(*m_outlook, dateFormat));
    lock.unlock();
    answer(arguments->argument(0), arguments->argument(1), {scriptArray(*m_application, found)});
}
