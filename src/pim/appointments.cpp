#include "orvanecore/functionarguments.h"
#include "orvanecore/iapplication.h"
#include "pim/arguments.h"
#include "pim/outlookdates.h"
#include "pim/records.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

#include <QtCore/QMutexLocker>

using platform::IAppointment;
using platform::IPOutlookItemCollection;

namespace {

struct FoundAppointment
{
    Record record;
    bool isRecurring = false;
};

int countOf(IPOutlookItemCollection &items, const QString &restriction)
{
    const auto matching = items.Restrict(restriction.toStdU16String());
    return matching ? matching->get_Count().value_or(0) : 0;
}

/// Appointments from now on, in order of their starts.
class UpcomingAppointments
{
public:
    explicit UpcomingAppointments(platform::IPOutlookApp &outlook)
    {
        const QString now = QString::number(currentDate(outlook), 'f', 2);
        const QString startsLater = QLatin1String("[Start] >= <") + now;
        const QString isUnderWay =
            QLatin1String(" OR ([IsRecurring] = TRUE AND [End] > <") + now + QLatin1Char(')');

        const auto folder = outlook.GetDefaultFolder(platform::OutlookFolder::Calendar);
        const auto items = folder ? folder->get_Items() : nullptr;
        if (!items)
            return;
        m_foundCount = countOf(*items, startsLater + isUnderWay);
        if (m_foundCount == 0)
            return;
        items->put_IncludeRecurrences(true);
        m_items = items->Restrict(startsLater.toStdU16String());
        if (m_items)
            m_items->Sort(u"Start", false);
    }

    /// How many there are, a series counting once.
    int foundCount() const { return m_foundCount; }

    /// The one at @p index, from 1; nothing at the end or if the store fails.
    std::optional<FoundAppointment> at(int index, const DateTexts &texts) const
    {
        const auto item = m_items ? m_items->Item(index) : nullptr;
        auto *const appointment = dynamic_cast<IAppointment *>(item.get());
        if (!appointment)
            return std::nullopt;
        const auto isRecurring = appointment->get_IsRecurring();
        const auto subject = appointment->get_Subject();
        const auto start = texts.dateAndTime(appointment->get_Start());
        if (!isRecurring || !subject || !start)
            return std::nullopt;
        return FoundAppointment{{{"subject", QString::fromStdU16String(*subject)}, {"startDate", *start}},
                                *isRecurring};
    }

private:
    int m_foundCount = 0;
    std::unique_ptr<IPOutlookItemCollection> m_items; ///< null if there are none
};

/// The next ones, @p count at most.
std::vector<Record> nextAppointments(platform::IPOutlookApp &outlook, int count, const DateTexts &texts)
{
    const UpcomingAppointments appointments(outlook);
    std::vector<Record> found;
    // Each series may give any number of appointments, so once there is one, only the count ends the list.
    bool hasSeries = false;
    for (int i = 1; i <= count && (hasSeries || i <= appointments.foundCount()); ++i) {
        std::optional<FoundAppointment> next = appointments.at(i, texts);
        if (!next)
            break;
        hasSeries = hasSeries || next->isRecurring;
        found.push_back(std::move(next->record));
    }
    return found;
}

} // namespace

void KestCommandProvider::getAppointments(FunctionArguments *arguments)
{
    const bool isValid = argumentsMatch(*arguments, {2, 5, {ArgumentType::Object, ArgumentType::Function}});
    if (!checkOutlookCall("getAppointments", isValid))
        return;
    const int count = numberOr(*arguments, 2, 10);
    const QString dateFormat = textOr(*arguments, 3, QStringLiteral("MM/dd/yyyy"));
    const QString timeFormat = textOr(*arguments, 4, QStringLiteral("HH:mm"));

    QMutexLocker lock(&m_poomMutex);
    const std::vector<Record> found =
        nextAppointments(*m_outlook, count, DateTexts(*m_outlook, dateFormat, timeFormat));
    lock.unlock();
    answer(arguments->argument(0), arguments->argument(1), {scriptArray(*m_application, found)});
}
