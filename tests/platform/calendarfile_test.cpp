#include "platform/desktop/outlook/contact.h"
#include "platform/desktop/outlook/task.h"
#include "support/appointments.h"
#include "support/pimprograms.h"

#include <QtCore/QDir>
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
