#include "support/appointments.h"
#include "support/pimprograms.h"
#include "support/processortime.h"

namespace {

using platform::OccurrenceWalk;
using testing::ElementsAre;

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
        const ProcessorTime time;
        const auto appointment = appointmentOf(eventOf(c.lines));
        EXPECT_EQ(startsOf(appointment, "2026-01-01T00:00:00", 2), c.starts) << c.lines.left(99).constData();
        EXPECT_EQ(textOf(appointment->end()), QLatin1String(c.end)) << c.lines.left(99).constData();
        startsOf(appointment, "2026-01-01T00:00:00", 50);
        appointment->first();
        EXPECT_LT(time.seconds(), 10) << c.lines.left(99).constData();
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
    const platform::VariantDate firstDay = dateOf("2026-03-01T10:00:00");
    for (int i = 0; i < 200; ++i) {
        EXPECT_EQ(early.next()->start, firstDay + i);
        EXPECT_EQ(late.next()->start, firstDay + 2 + i);
    }
    EXPECT_THAT(startsOf(appointment, "2026-03-03T10:00:01", 1), ElementsAre("2026-03-04 10:00:00"));
    EXPECT_THAT(startsOf(appointment, "2025-10-26T00:00:00", 1), ElementsAre("2025-10-26 10:00:00"));
    EXPECT_THAT(startsOf(appointment, "2999-12-31T00:00:00", 9), ElementsAre("2999-12-31 10:00:00"));
    EXPECT_EQ(startsOf(appointment, "2026-03-01T00:00:00", 5'000).back(), "2039-11-07 10:00:00");
}

} // namespace
