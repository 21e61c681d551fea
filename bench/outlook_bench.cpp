#include "platform/desktop/desktophiddenwindows.h"
#include "platform/desktop/outlook/appointment.h"
#include "platform/desktop/outlook/desktopoutlook.h"
#include "platform/desktop/outlook/variantdate.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtCore/QTemporaryDir>
#include <benchmark/benchmark.h>

using platform::OutlookFolder;

namespace {

constexpr int appointmentCount = 10000;
constexpr int shown = 10;
constexpr int repetitions = 5;
constexpr int khalRuns = 10;
constexpr int longestSynchronisation = 600000; // milliseconds

/// Every tenth appointment is a series, most of them with an end.
QByteArray ruleOf(int number)
{
    const int series = number / 10;
    if (number % 10 != 0)
        return QByteArray();
    if (series % 100 == 0)
        return "RRULE:FREQ=DAILY\r\n";
    const QByteArray rules[] = {"WEEKLY", "MONTHLY", "YEARLY"};
    return "RRULE:FREQ=" + (series % 10 < 3 ? rules[series % 10] : QByteArray("WEEKLY;COUNT=100")) + "\r\n";
}

/// A device whose appointments begin in the four years around today.
class Device
{
public:
    Device()
    {
        QDir(m_dir.path()).mkdir(QStringLiteral("calendar"));
        const QDateTime today(QDate::currentDate(), QTime(8, 0));
        for (int i = 0; i < appointmentCount; ++i) {
            constexpr int years = 4 * 365;
            const QDateTime start = today.addDays(i * 7 % years - years / 2).addSecs(i * 60 % 36000);
            QFile file(calendar() + QStringLiteral("/%1.ics").arg(i));
            file.open(QIODevice::WriteOnly);
            const QByteArray number = QByteArray::number(i);
            file.write("BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//bench//EN\r\nBEGIN:VEVENT\r\nUID:"
                       + number + "@example.org\r\nDTSTAMP:20200101T000000Z\r\nSUMMARY:Appointment " + number
                       + "\r\nDTSTART:" + start.toString(QStringLiteral("yyyyMMddTHHmmss")).toLatin1()
                       + "\r\nDURATION:PT1H\r\n" + ruleOf(i) + "END:VEVENT\r\nEND:VCALENDAR\r\n");
        }
    }

    QString path() const { return m_dir.path(); }
    QString calendar() const { return m_dir.filePath(QStringLiteral("calendar")); }
    QString filePath(const QString &name) const { return m_dir.filePath(name); }

private:
    const QTemporaryDir m_dir;
};

const Device &deviceOf10000()
{
    static const Device device;
    return device;
}

std::unique_ptr<platform::IPOutlookApp> connect()
{
    static platform::DesktopHiddenWindows windows;
    return platform::DesktopOutlook(platform::DeviceFolder(deviceOf10000().path()), windows)
        .createApplication();
}

void readAppointmentsOf10000Files(benchmark::State &state)
{
    const QDir folder(deviceOf10000().calendar());
    for (auto _ : state) {
        std::vector<platform::FileItems> all;
        for (const QString &name : folder.entryList(QDir::Files, QDir::Name)) {
            QFile file(folder.filePath(name));
            file.open(QIODevice::ReadOnly);
            all.push_back(platform::readAppointments(file.readAll()));
            if (all.back().items.size() != 1)
                state.SkipWithError("a file was not read");
        }
    }
}

/// Each time on a device that has never been opened.
void openCalendarOf10000(benchmark::State &state)
{
    const Device &device = deviceOf10000();
    for (auto _ : state) {
        state.PauseTiming();
        for (const char *name : {"items.db", "items.db-wal", "items.db-shm"})
            QFile::remove(device.filePath(QLatin1String(name)));
        state.ResumeTiming();
        const auto items = connect()->GetDefaultFolder(OutlookFolder::Calendar)->get_Items();
        if (!items || items->get_Count() != appointmentCount)
            state.SkipWithError("not all appointments were read");
    }
}

/// As a script's list of what comes next is made.
int nextAppointments(platform::IPOutlookApp &connection, double now)
{
    const std::u16string date = QString::number(now, 'f', 2).toStdU16String();
    const auto folder = connection.GetDefaultFolder(OutlookFolder::Calendar);
    const auto items = folder->get_Items();
    const auto coming =
        items->Restrict(u"[Start] >= <" + date + u" OR ([IsRecurring] = TRUE AND [End] > <" + date + u")");
    if (coming->get_Count().value_or(0) == 0)
        return 0;
    items->put_IncludeRecurrences(true);
    const auto next = items->Restrict(u"[Start] >= <" + date);
    next->Sort(u"Start", false);
    int count = 0;
    while (count < shown) {
        const auto item = next->Item(count + 1);
        auto *appointment = dynamic_cast<platform::IAppointment *>(item.get());
        if (!appointment || !appointment->get_Subject() || appointment->get_Start().value_or(0) < now - 1)
            break;
        ++count;
    }
    return count;
}

void nextAppointmentsOf10000(benchmark::State &state)
{
    const auto connection = connect();
    const double now = platform::toVariantDate(QDateTime::currentDateTime());
    nextAppointments(*connection, now);
    for (auto _ : state) {
        if (nextAppointments(*connection, now) != shown)
            state.SkipWithError("not all appointments were found");
    }
}

/// What a calendar program for the command line needs for the same, from its own database.
void khalListOf10000(benchmark::State &state)
{
    const QString program = QStandardPaths::findExecutable(QStringLiteral("khal"));
    if (program.isEmpty()) {
        state.SkipWithError("khal is not installed");
        return;
    }
    const QTemporaryDir own;
    QFile configuration(own.filePath(QStringLiteral("config")));
    configuration.open(QIODevice::WriteOnly);
    configuration.write("[calendars]\n[[bench]]\npath = " + QFile::encodeName(deviceOf10000().calendar())
                        + "\nreadonly = True\n[sqlite]\npath = "
                        + QFile::encodeName(own.filePath(QStringLiteral("khal.db")))
                        + "\n[locale]\ntimeformat = %H:%M\ndateformat = %d.%m.\nlongdateformat = %d.%m.%Y\n"
                          "datetimeformat = %d.%m. %H:%M\nlongdatetimeformat = %d.%m.%Y %H:%M\n");
    configuration.close();
    const auto list = [&] {
        QProcess khal;
        khal.start(program, {QStringLiteral("-c"), configuration.fileName(), QStringLiteral("list")});
        return khal.waitForFinished(longestSynchronisation) && khal.exitCode() == 0
            && khal.readAllStandardOutput().contains("Appointment");
    };
    list(); // reads all files into its database
    for (auto _ : state) {
        if (!list()) {
            state.SkipWithError("khal has listed nothing");
            break;
        }
    }
}

} // namespace

BENCHMARK(readAppointmentsOf10000Files)->Repetitions(repetitions)->Unit(benchmark::kMillisecond);
BENCHMARK(openCalendarOf10000)->Repetitions(repetitions)->Unit(benchmark::kMillisecond);
BENCHMARK(nextAppointmentsOf10000)->Repetitions(repetitions)->Unit(benchmark::kMillisecond);
BENCHMARK(khalListOf10000)->Iterations(khalRuns)->UseRealTime()->Unit(benchmark::kMillisecond);
