#include "platform/desktop/outlook/appointment.h"
#include "platform/desktop/outlook/contact.h"
#include "platform/desktop/outlook/task.h"
#include "platform/desktop/outlook/variantdate.h"
#include "support/pimprograms.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QSet>

#include <gmock/gmock.h>

namespace {

using platform::Appointment;
using platform::FileItems;
using platform::Occurrence;
using platform::OccurrenceWalk;
using platform::VariantDate;
using testing::ElementsAre;
using testing::IsEmpty;

/// "2026-03-01 12:30:00".
QString textOf(VariantDate date)
{
    const auto time = platform::toSystemTime(date);
    if (!time || date == platform::noDate)
        return QStringLiteral("none");
    return QString::asprintf("%04d-%02d-%02d %02d:%02d:%02d", time->year, time->month, time->day, time->hour,
                             time->minute, time->second);
}

VariantDate dateOf(const char *text)
{
    return platform::toVariantDate(QDateTime::fromString(QLatin1String(text), Qt::ISODate));
}

QByteArray calendarOf(const QByteArray &entries)
{
    return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Example//EN\r\n" + entries + "END:VCALENDAR\r\n";
}

QByteArray eventOf(const QByteArray &lines)
{
    return "BEGIN:VEVENT\r\nUID:one\r\nSUMMARY:Event\r\n" + lines + "\r\nEND:VEVENT\r\n";
}

std::shared_ptr<const Appointment> appointmentOf(const QByteArray &events)
{
    const FileItems file = platform::readAppointments(calendarOf(events));
    EXPECT_EQ(file.problem, QString());
    EXPECT_EQ(file.items.size(), 1U) << events.constData();
    return file.items.empty() ? nullptr : std::dynamic_pointer_cast<const Appointment>(file.items.front());
}

/// "2026-03-01 12:30:00" of at most @p count occurrences, with the subject if it is not "Event".
std::vector<std::string> startsOf(const std::shared_ptr<const Appointment> &appointment, const char *from,
                                  int count)
{
    std::vector<std::string> starts;
    OccurrenceWalk walk(appointment, dateOf(from));
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

template <typename Item, typename Line>
QSet<QString> linesOfFolder(const QString &folder, const platform::ItemReader &read, Line line)
{
    QSet<QString> lines;
    for (const QFileInfo &info : QDir(folder).entryInfoList(QDir::Files)) {
        QFile file(info.filePath());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const FileItems items = read(file.readAll());
        EXPECT_EQ(items.problem, QString()) << info.fileName().toStdString();
        for (const auto &item : items.items)
            line(std::dynamic_pointer_cast<const Item>(item), lines);
    }
    return lines;
}

std::vector<std::string> sorted(const QSet<QString> &lines)
{
    std::vector<std::string> result;
    for (const QString &line : lines)
        result.push_back(line.toStdString());
    std::sort(result.begin(), result.end());
    return result;
}

void expectSame(const QSet<QString> &ours, const QSet<QString> &theirs)
{
    EXPECT_GE(ours.size(), 10);
    EXPECT_THAT(sorted(ours - theirs), IsEmpty()) << "only ours";
    EXPECT_THAT(sorted(theirs - ours), IsEmpty()) << "only theirs";
}

/// A line of khal's as "UID|start|end|subject". It ends all-day events with their last day.
QString fromKhal(const QString &line)
{
    const QStringList fields = line.split(QLatin1Char('\t'));
    if (fields.size() != 6)
        return line;
    const QString midnight = QStringLiteral(" 00:00:00");
    const bool isAllDay = fields[2].isEmpty();
    const QString end = isAllDay
        ? QDate::fromString(fields[3], Qt::ISODate).addDays(1).toString(Qt::ISODate) + midnight
        : fields[3] + QLatin1Char(' ') + fields[4];
    const QString start = fields[1] + (isAllDay ? midnight : QLatin1Char(' ') + fields[2]);
    return QStringList{fields[0], start, end, fields[5]}.join(QLatin1Char('|'));
}

class CalendarFileInZone : public testing::TestWithParam<const char *>
{
protected:
    const TimeZoneScope m_zone{GetParam()};
    const PimPrograms m_programs;
};

TEST_P(CalendarFileInZone, HasTheOccurrencesThatKhalLists)
{
    const QString calendar = QStringLiteral("calendar");
    m_programs.copySamples(calendar);
    const QString first = QStringLiteral("2026-03-01");
    const QString behind = QStringLiteral("2026-11-15");
    QSet<QString> theirs;
    for (const QString &line : m_programs.runForLines(
             QStringLiteral("khal"),
             {QStringLiteral("list"), QStringLiteral("--day-format"), QString(), QStringLiteral("--format"),
              QStringLiteral("{uid}\t{start-date-long}\t{start-time}\t{end-date-long}\t{end-time}\t{title}"),
              first, behind})) {
        const QString text = fromKhal(line);
        const QString start = text.section(QLatin1Char('|'), 1, 1);
        if (start >= first && start < behind)
            theirs.insert(text);
    }
    const auto add = [](const std::shared_ptr<const Appointment> &appointment, QSet<QString> &lines) {
        OccurrenceWalk walk(appointment, dateOf("2026-03-01T00:00:00"));
        VariantDate last = 0;
        for (auto one = walk.next(); one && one->start < dateOf("2026-11-15T00:00:00"); one = walk.next()) {
            EXPECT_LE(last, one->start) << appointment->uid().toStdString();
            last = one->start;
            lines.insert(
                QStringList{appointment->uid(), textOf(one->start), textOf(one->end), one->subject}.join(
                    QLatin1Char('|')));
        }
    };
    expectSame(linesOfFolder<Appointment>(m_programs.folder(calendar), platform::readAppointments, add),
               theirs);
}

TEST_P(CalendarFileInZone, HasTheTasksThatTodomanLists)
{
    const QString tasks = QStringLiteral("tasks");
    m_programs.copySamples(tasks);
    const QString listed = m_programs.run(QStringLiteral("todoman"),
                                          {QStringLiteral("--porcelain"), QStringLiteral("list"),
                                           QStringLiteral("--status"), QStringLiteral("ANY")});
    QSet<QString> theirs;
    for (const QJsonValue &value : QJsonDocument::fromJson(listed.toUtf8()).array()) {
        const QJsonObject todo = value.toObject();
        const QJsonValue due = todo.value(QStringLiteral("due"));
        const QString day = due.isNull() ? QStringLiteral("none")
                                         : QDateTime::fromSecsSinceEpoch(qint64(due.toDouble()))
                                               .toString(QStringLiteral("yyyy-MM-dd 00:00:00"));
        const QString subject = todo.value(QStringLiteral("summary")).toString();
        const bool isComplete = todo.value(QStringLiteral("completed")).toBool();
        theirs.insert(QStringLiteral("%1|%2|%3").arg(subject, day).arg(isComplete));
    }
    const auto add = [](const std::shared_ptr<const platform::Task> &task, QSet<QString> &lines) {
        lines.insert(
            QStringLiteral("%1|%2|%3").arg(task->subject, textOf(task->dueDate)).arg(task->isComplete));
    };
    expectSame(linesOfFolder<platform::Task>(m_programs.folder(tasks), platform::readTasks, add), theirs);
}

INSTANTIATE_TEST_SUITE_P(Zones, CalendarFileInZone,
                         testing::Values("Europe/Berlin", "America/New_York", "Asia/Kolkata", "UTC"));

TEST(CalendarFile, IsReadAsOtherProgramsWriteAndSyncIt)
{
    const TimeZoneScope zone("Europe/Berlin");
    const PimPrograms programs;
    const auto run = [&programs](const char *program, const std::vector<const char *> &arguments,
                                 const QByteArray &input = {}) {
        QStringList texts;
        for (const char *argument : arguments)
            texts.append(QString::fromUtf8(argument));
        programs.run(QLatin1String(program), texts, input);
    };
    run("khal",
        {"new", "-a", "calendar", "--repeat", "weekly", "2026-03-26", "09:00:00", "10:30:00", "Café"});
    run("todoman", {"new", "--start", "2026-04-01", "--due", "2026-04-05", "Zum Bäcker"});
    run("khard", {"new"}, "First name: Zoë\nLast name: Example\nBirthday: 1980-04-12\n");
    run("vdirsyncer", {"discover"}, "y\ny\ny\ny\ny\ny\n");
    run("vdirsyncer", {"sync"});
    const auto itemOf = [&programs](const char *kind, const platform::ItemReader &read) {
        const FileItems file = read(PimPrograms::onlyFile(programs.folder(QLatin1String(kind))));
        EXPECT_EQ(file.items.size(), 1U) << kind << ": " << file.problem.toStdString();
        return file.items.empty() ? nullptr : file.items.front();
    };
    const auto appointment =
        std::dynamic_pointer_cast<const Appointment>(itemOf("synced/calendar", platform::readAppointments));
    const auto task =
        std::dynamic_pointer_cast<const platform::Task>(itemOf("synced/tasks", platform::readTasks));
    const auto contact =
        std::dynamic_pointer_cast<const platform::Contact>(itemOf("synced/contacts", platform::readContacts));
    ASSERT_TRUE(appointment && task && contact);
    EXPECT_THAT(startsOf(appointment, "2026-03-01T00:00:00", 2),
                ElementsAre("2026-03-26 09:00:00 Café", "2026-04-02 09:00:00 Café"));
    EXPECT_EQ(task->subject, QString::fromUtf8("Zum Bäcker"));
    EXPECT_EQ(textOf(task->startDate), QLatin1String("2026-04-01 00:00:00"));
    EXPECT_EQ(textOf(task->dueDate), QLatin1String("2026-04-05 00:00:00"));
    EXPECT_EQ(textOf(contact->birthday), QLatin1String("1980-04-12 00:00:00"));
    EXPECT_EQ(contact->texts[static_cast<std::size_t>(platform::ContactText::FileAs)],
              QString::fromUtf8("Zoë Example"));
}

TEST(CalendarFile, HasAProblemIfItIsBroken)
{
    QByteArray deep;
    for (int i = 0; i < 100'000; ++i)
        deep += "BEGIN:VEVENT\r\n";
    const QByteArray endlessZone =
        "BEGIN:VTIMEZONE\r\nTZID:Bad\r\nBEGIN:STANDARD\r\nTZOFFSETFROM:+0100\r\n"
        "TZOFFSETTO:+0200\r\nDTSTART:19700101T000000\r\nRRULE:FREQ=SECO\r\n NDLY\r\n"
        "END:STANDARD\r\nEND:VTIMEZONE\r\n";
    const QByteArray yearly = "BEGIN:STANDARD\r\nRRULE:FREQ=YEARLY\r\nEND:STANDARD\r\n";
    const QByteArray more = QByteArray(",2").repeated(20);
    const QByteArray event = eventOf("DTSTART:20260301T100000");
    const std::pair<QByteArray, const char *> cases[] = {
        {"", "this is no calendar"},
        {QByteArray(100, '\0'), "this is no calendar"},
        {"BEGIN:VCARD\r\nEND:VCARD\r\n", "this is no calendar"},
        {calendarOf(event).chopped(20), "the file ends in the middle"},
        {calendarOf("END:VEVENT\r\nEND:VCALENDAR\r\n"), "a part of the calendar ends without having begun"},
        {calendarOf(deep), "the calendar has too many parts"},
        {calendarOf(eventOf("DTSTART:20260101T000000Z\r\nRRULE:FREQ=YEARLY;BYMONTHDAY=1" + more + ";BYHOUR=1"
                            + more + ";BYMINUTE=1" + more)),
         "a rule combines too many numbers"},
        {calendarOf("BEGIN:VTIMEZONE\r\nTZID:Z\r\n" + yearly.repeated(201) + "END:VTIMEZONE\r\n"),
         "the time zones have too many rules"},
        {calendarOf(endlessZone + event), "the rules of a time zone are not yearly"},
        {calendarOf(QByteArray(16 << 20, 'x')), "the file is too large"},
        {calendarOf("X-LONG:" + QByteArray(4 << 20, 'x') + "\r\n"), "a line of the calendar is too long"},
        {calendarOf(event).replace("VERSION:2.0", "VERSION:1.0"), "the calendar is not of version 2.0"},
        {calendarOf(eventOf("")), "the event one does not say when it starts"},
        {calendarOf("BEGIN:VTODO\r\nEND:VTODO\r\n"), ""},
    };
    for (const auto &[content, problem] : cases) {
        const FileItems file = platform::readAppointments(content);
        EXPECT_EQ(file.problem, QLatin1String(problem)) << content.left(200).constData();
        EXPECT_THAT(file.items, IsEmpty()) << content.left(200).constData();
    }
    const FileItems partly = platform::readAppointments(
        calendarOf(eventOf("").replace("UID:one", "UID:two") + eventOf("DTSTART:20260301T100000")));
    EXPECT_EQ(partly.problem, QLatin1String("the event two does not say when it starts"));
    EXPECT_EQ(partly.items.size(), 1U);
    const auto latin1 = appointmentOf(eventOf("DTSTART:20260301T100000\r\nLOCATION:Caf\xE9"));
    EXPECT_EQ(textOf(latin1->first().start), QLatin1String("2026-03-01 10:00:00"));
}

TEST(CalendarFile, MovesTimesThatTheClocksHereLeaveOut)
{
    const TimeZoneScope zone("Europe/Berlin");
    for (const char *start : {"DTSTART:", "DTSTART;TZID=Nowhere:"}) {
        const auto appointment =
            appointmentOf(eventOf(start + QByteArray("20260329T023000\r\nRRULE:FREQ=DAILY;COUNT=2")));
        EXPECT_THAT(startsOf(appointment, "2026-01-01T00:00:00", 9),
                    ElementsAre("2026-03-29 03:30:00", "2026-03-30 02:30:00"));
    }
}

TEST(CalendarFile, HasOneItemForEachUid)
{
    const auto event = [](const char *uid, const char *subject, const char *more = "") {
        return QByteArray("BEGIN:VEVENT\r\nDTSTART:20260301T100000Z\r\n") + uid + "SUMMARY:" + subject + more
            + "\r\nEND:VEVENT\r\n";
    };
    const FileItems file = platform::readAppointments(
        calendarOf(event("UID:z\r\n", "first") + event("UID:a\r\n", "second") + event("", "without UID")
                   + event("", "without UID, too") + event("UID:z\r\n", "later version", "\r\nSEQUENCE:2")
                   + event("UID:m\r\n", "change", "\r\nRECURRENCE-ID:20260308T100000Z")));
    std::vector<std::string> found;
    for (const auto &item : file.items) {
        const QString subject = std::dynamic_pointer_cast<const Appointment>(item)->first().subject;
        found.push_back((item->uid() + QLatin1Char(' ') + subject).toStdString());
    }
    EXPECT_THAT(found,
                ElementsAre("z later version", "a second", " without UID", " without UID, too", "m change"));
}

TEST(OccurrenceWalk, IsQuickHoweverBadTheRules)
{
    const auto times = [](const QByteArray &name, int count, int step) {
        QByteArray lines;
        QDateTime time(QDate(2026, 1, 2), QTime(0, 0), Qt::UTC);
        for (int i = 0; i < count; ++i, time = time.addSecs(step))
            lines += name + time.toString(QStringLiteral(":yyyyMMddTHHmmss'Z'\r\n")).toLatin1();
        return lines;
    };
    constexpr int day = 86400;
    struct Case
    {
        QByteArray lines;
        std::vector<std::string> starts; ///< the first two in 2026 or later
        const char *end;
    };
    const char *const never = "2999-12-31 00:00:00";
    const Case cases[] = {
        {"DTSTART:19700101T000000Z\r\nRRULE:FREQ=SECONDLY",
         {"2026-01-01 00:00:00", "2026-01-01 00:00:01"},
         never},
        {"DTSTART:20260101T000000Z\r\nRRULE:FREQ=SECONDLY;COUNT=20000",
         {"2026-01-01 00:00:00", "2026-01-01 00:00:01"},
         "2026-01-01 05:33:19"},
        {"DTSTART:20260101T000000Z\r\nRRULE:FREQ=HOURLY;INTERVAL=5;UNTIL=20260101T093000Z",
         {"2026-01-01 00:00:00", "2026-01-01 05:00:00"},
         "2026-01-01 05:00:00"},
        {"DTSTART:19900101T100000Z\r\nRRULE:FREQ=DAILY;COUNT=1000000000",
         {"2026-01-01 10:00:00", "2026-01-02 10:00:00"},
         never},
        {"DTSTART:20260101T100000Z\r\nRRULE:FREQ=DAILY;COUNT=20000",
         {"2026-01-01 10:00:00", "2026-01-02 10:00:00"},
         "2080-10-03 10:00:00"},
        {"DTSTART:20260101T100000Z\r\nRRULE:FREQ=DAILY;INTERVAL=0",
         {"2026-01-01 10:00:00"},
         "2026-01-01 10:00:00"},
        {"DTSTART:20260101T100000Z\r\nRRULE:FREQ=YEARLY;INTERVAL=30000",
         {"2026-01-01 10:00:00"},
         "2026-01-01 10:00:00"},
        {"DTSTART:20260101T100000Z\r\nRRULE:FREQ=YEARLY;INTERVAL=2147483647",
         {"2026-01-01 10:00:00"},
         "2026-01-01 10:00:00"},
        {"DTSTART:20250101T100000Z\r\nRRULE:FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30", {}, never},
        {"DTSTART:20250101T100000Z\r\nRRULE:FREQ=SECONDLY;BYMONTH=2;BYMONTHDAY=30", {}, never},
        {"DTSTART:20250101T100000Z\r\nRRULE:FREQ=MONTHLY;BYDAY=MO;BYSETPOS=-366,366", {}, never},
        {"DTSTART:20250101T100000Z\r\nRRULE:FREQ=YEARLY;COUNT=9999;BYMONTH=2;BYMONTHDAY=30",
         {},
         "2025-01-01 10:00:00"},
        {"DTSTART:20260101T100000Z\r\nRRULE:FREQ=YEARLY;BYDAY=MO,TU,WE,TH,FR,SA,SU;BYHOUR=1,2,3;BYMINUTE=1,2,"
         "3,4",
         {"2026-01-01 10:00:00"},
         "2026-01-01 10:00:00"},
        // beyond a turn of years at which the library goes back
        {"DTSTART:20261226T000000Z\r\nRRULE:FREQ=YEARLY;BYWEEKNO=1,11;BYDAY=TU,TH;UNTIL=20350101T000000Z",
         {"2026-12-26 00:00:00", "2027-01-05 00:00:00"},
         "2034-03-16 00:00:00"},
        {"DTSTART:20260101T100000Z\r\nRRULE:FREQ=DAILY;UNTIL=19990101T000000Z",
         {"2026-01-01 10:00:00"},
         "2026-01-01 10:00:00"},
        {"DTSTART:20260101T000000Z\r\nRRULE:FREQ=DAILY\r\n" + times("EXDATE", 10000, day),
         {"2026-01-01 00:00:00", "2053-05-20 00:00:00"},
         never},
        {"DTSTART:20260101T000000Z\r\nRRULE:FREQ=DAILY\r\nEXRULE:FREQ=DAILY", {}, never},
        {"DTSTART:20260101T000000Z\r\n" + times("RDATE", 30000, day),
         {"2026-01-01 00:00:00", "2026-01-02 00:00:00"},
         "2108-02-21 00:00:00"},
        {"DTSTART:99991231T235959Z\r\nDURATION:P9999W\r\nRRULE:FREQ=DAILY", {}, never},
        {"DTSTART:00010101T000000Z\r\nRRULE:FREQ=DAILY",
         {"2026-01-01 00:00:00", "2026-01-02 00:00:00"},
         never},
        {"DTSTART:29991230T000000Z\r\nRRULE:FREQ=DAILY",
         {"2999-12-30 00:00:00", "2999-12-31 00:00:00"},
         never},
    };
    const TimeZoneScope zone("UTC");
    for (const Case &c : cases) {
        QElapsedTimer timer;
        timer.start();
        const auto appointment = appointmentOf(eventOf(c.lines));
        EXPECT_EQ(startsOf(appointment, "2026-01-01T00:00:00", 2), c.starts) << c.lines.left(99).constData();
        EXPECT_EQ(textOf(appointment->end()), QLatin1String(c.end)) << c.lines.left(99).constData();
        startsOf(appointment, "2026-01-01T00:00:00", 50);
        appointment->first();
        EXPECT_LT(timer.elapsed(), 10000) << c.lines.left(99).constData();
    }
}

TEST(OccurrenceWalk, GoesThroughChangesInOrder)
{
    struct Case
    {
        QByteArray events;
        std::vector<std::string> starts;
        const char *end;
    };
    const QByteArray weekly =
        eventOf("DTSTART:20260302T100000Z\r\nDURATION:PT1H\r\nRRULE:FREQ=WEEKLY;COUNT=4");
    const auto change = [](const char *id, const char *subject, const char *lines) {
        return eventOf(QByteArray("RECURRENCE-ID") + id + "\r\n" + lines).replace("SUMMARY:Event", subject);
    };
    const Case cases[] = {
        // to before the first, to after the last, and to the start of another
        {weekly + change(":20260309T100000Z", "SUMMARY:A", "DTSTART:20260201T100000Z")
             + change(":20260302T100000Z", "SUMMARY:B", "DTSTART:20260401T100000Z\r\nDURATION:P1D")
             + change(":20260316T100000Z", "SUMMARY:C", "DTSTART:20260323T100000Z"),
         {"2026-02-01 10:00:00 A", "2026-03-23 10:00:00", "2026-03-23 10:00:00 C", "2026-04-01 10:00:00 B"},
         "2026-04-02 10:00:00"},
        {weekly + change(";VALUE=DATE:20260309", "SUMMARY:By its day", "DTSTART:20260310T100000Z"),
         {"2026-03-02 10:00:00", "2026-03-10 10:00:00 By its day", "2026-03-16 10:00:00",
          "2026-03-23 10:00:00"},
         "2026-03-23 11:00:00"},
        {weekly
             + change(";RANGE=THISANDFUTURE:20260309T100000Z", "SUMMARY:Later",
                      "DTSTART:20260310T120000Z\r\nDURATION:PT2H")
             + change(";RANGE=THISANDFUTURE:20260323T100000Z", "SUMMARY:Earlier", "DTSTART:20260315T080000Z"),
         {"2026-03-02 10:00:00", "2026-03-10 12:00:00 Later", "2026-03-15 08:00:00 Earlier",
          "2026-03-17 12:00:00 Later"},
         "2026-03-17 14:00:00"},
        {eventOf(
             "DTSTART:20260302T100000Z\r\nRDATE;VALUE=PERIOD:20260304T100000Z/PT3H,20260301T100000Z/PT1H"),
         {"2026-03-01 10:00:00", "2026-03-02 10:00:00", "2026-03-04 10:00:00"},
         "2026-03-04 13:00:00"},
        {eventOf("DTSTART:20260302T100000Z\r\nRRULE:FREQ=DAILY;COUNT=3\r\nEXDATE:20260302T100000Z,"
                 "20260304T100000Z"),
         {"2026-03-03 10:00:00"},
         "2026-03-03 10:00:00"},
        {eventOf("DTSTART:20260302T100000Z\r\nRRULE:FREQ=DAILY;COUNT=3\r\nEXDATE;VALUE=DATE:20260303"),
         {"2026-03-02 10:00:00", "2026-03-04 10:00:00"},
         "2026-03-04 10:00:00"},
        // a start that the rule leaves out, and a time that is not on the clocks of a day, or twice
        {eventOf("DTSTART:20260303T100000Z\r\nRRULE:FREQ=WEEKLY;BYDAY=MO;COUNT=2"),
         {"2026-03-03 10:00:00", "2026-03-09 10:00:00", "2026-03-16 10:00:00"},
         "2026-03-16 10:00:00"},
        {eventOf("DTSTART;TZID=Europe/Berlin:20260328T023000\r\nRRULE:FREQ=DAILY;COUNT=2"),
         {"2026-03-28 01:30:00", "2026-03-29 01:30:00"},
         "2026-03-29 01:30:00"},
        {eventOf("DTSTART;TZID=Pacific Standard Time:20260308T023000\r\nRRULE:FREQ=DAILY;COUNT=2"),
         {"2026-03-08 10:30:00", "2026-03-09 09:30:00"},
         "2026-03-09 09:30:00"},
        {eventOf("DTSTART;TZID=Europe/Berlin:20261024T023000\r\nRRULE:FREQ=DAILY;COUNT=5;BYHOUR=2,3"),
         {"2026-10-24 00:30:00", "2026-10-24 01:30:00", "2026-10-25 01:30:00", "2026-10-25 02:30:00",
          "2026-10-26 01:30:00"},
         "2026-10-26 01:30:00"},
        {eventOf("DTSTART;TZID=Europe/"
                 "Berlin:20260329T023000\r\nRRULE:FREQ=DAILY;COUNT=3;BYHOUR=2,3;BYMINUTE=10,30"),
         {"2026-03-29 01:10:00", "2026-03-29 01:30:00"},
         "2026-03-29 01:30:00"},
    };
    const TimeZoneScope zone("UTC");
    for (const Case &c : cases) {
        const auto appointment = appointmentOf(c.events);
        EXPECT_EQ(startsOf(appointment, "2026-01-01T00:00:00", 99), c.starts) << c.events.constData();
        EXPECT_EQ(textOf(appointment->first().start), QString::fromStdString(c.starts.front()).left(19));
        EXPECT_EQ(textOf(appointment->end()), QLatin1String(c.end)) << c.events.constData();
        EXPECT_TRUE(appointment->isRecurring());
    }
}

TEST(OccurrenceWalk, IsTheSameAgainFromElsewhereAndSideBySide)
{
    const TimeZoneScope zone("Europe/Berlin");
    const auto appointment = appointmentOf(eventOf("DTSTART:19900101T100000\r\nRRULE:FREQ=DAILY"));
    OccurrenceWalk early(appointment, dateOf("2026-03-01T00:00:00"));
    OccurrenceWalk late(appointment, dateOf("2026-03-03T10:00:00"));
    const VariantDate firstDay = dateOf("2026-03-01T10:00:00");
    for (int i = 0; i < 200; ++i) {
        EXPECT_EQ(early.next()->start, firstDay + i);
        EXPECT_EQ(late.next()->start, firstDay + 2 + i);
    }
    EXPECT_THAT(startsOf(appointment, "2026-03-03T10:00:01", 1), ElementsAre("2026-03-04 10:00:00"));
    EXPECT_THAT(startsOf(appointment, "2025-10-26T00:00:00", 1), ElementsAre("2025-10-26 10:00:00"));
    EXPECT_THAT(startsOf(appointment, "2999-12-31T00:00:00", 9), ElementsAre("2999-12-31 10:00:00"));
    EXPECT_EQ(startsOf(appointment, "2026-03-01T00:00:00", 5'000).back(), "2039-11-07 10:00:00");
}

TEST(TaskFile, HasDaysAsTheyAreHere)
{
    struct Case
    {
        const char *lines;
        const char *start;
        const char *due;
    };
    const Case cases[] = {
        {"DTSTART;TZID=America/New_York:20260301T200000\r\nDURATION:P1DT1H", "2026-03-02", "2026-03-03"},
        {"DTSTART;VALUE=DATE:20260301\r\nDURATION:P2D", "2026-03-01", "2026-03-03"},
        {"DTSTART;VALUE=DATE:20260301\r\nDUE:20260301T233000Z", "2026-03-01", "2026-03-02"},
        {"DTSTART:20260301T100000Z\r\nDUE:20260302T100000Z\r\nRRULE:FREQ=DAILY", "2026-03-01", "2026-03-02"},
        {"SUMMARY:x", "none", "none"},
    };
    const TimeZoneScope zone("Europe/Berlin");
    for (const Case &c : cases) {
        const FileItems file = platform::readTasks(
            calendarOf(QByteArray("BEGIN:VTODO\r\nUID:one\r\n") + c.lines + "\r\nEND:VTODO\r\n"));
        ASSERT_EQ(file.items.size(), 1U) << c.lines;
        const auto task = std::dynamic_pointer_cast<const platform::Task>(file.items.front());
        EXPECT_EQ(textOf(task->startDate).section(QLatin1Char(' '), 0, 0), QLatin1String(c.start)) << c.lines;
        EXPECT_EQ(textOf(task->dueDate).section(QLatin1Char(' '), 0, 0), QLatin1String(c.due)) << c.lines;
    }
}

} // namespace
