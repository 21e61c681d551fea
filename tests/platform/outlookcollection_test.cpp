#include "platform/desktop/outlook/variantdate.h"
#include "support/outlookdevice.h"

#include <QtCore/QDateTime>
#include <QtCore/QElapsedTimer>

using platform::OutlookFolder;

namespace {

class OutlookCollectionTest : public testing::Test
{
protected:
    /// 40134.52 is 17 November 2009, 12:28:48.
    void SetUp() override
    {
        m_device.writeEvent("Past", "DTSTART:20091101T100000\r\nDTEND:20091101T110000\r\n");
        m_device.writeEvent("Soon", "DTSTART:20091117T180000\r\nDTEND:20091117T190000\r\n");
        m_device.writeEvent("Later", "DTSTART:20091119T090000\r\nDTEND:20091119T100000\r\n");
        m_device.writeEvent("Ended", "DTSTART:20091001T090000\r\nRRULE:FREQ=DAILY;COUNT=3\r\n");
        m_device.writeEvent("Daily", "DTSTART:20091101T090000\r\nRRULE:FREQ=DAILY\r\n");
        m_device.write(
            QStringLiteral("tasks/all.ics"),
            OutlookDevice::calendar(task("Late", "DUE;VALUE=DATE:20091116\r\n")
                                    + task("Now", "DUE;VALUE=DATE:20091117\r\n")
                                    + task("Done", "DUE;VALUE=DATE:20091101\r\nSTATUS:COMPLETED\r\n")
                                    + task("Early", "DUE;VALUE=DATE:20091110\r\n")));
        m_device.write(QStringLiteral("contacts/all.vcf"),
                       card("zoe") + card("Bob") + card("Zac") + card("adam"));
    }

    static QByteArray task(const QByteArray &name, const QByteArray &lines)
    {
        return "BEGIN:VTODO\r\nUID:" + name + "\r\nSUMMARY:" + name + "\r\n" + lines + "END:VTODO\r\n";
    }

    static QByteArray card(const QByteArray &name)
    {
        return "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:" + name + "\r\nN:;" + name + ";;;\r\nFN:" + name
            + "\r\nEND:VCARD\r\n";
    }

    std::unique_ptr<platform::IPOutlookItemCollection> items(OutlookFolder folder = OutlookFolder::Calendar)
    {
        return m_connection->GetDefaultFolder(folder)->get_Items();
    }

    OutlookDevice m_device;
    std::unique_ptr<platform::IPOutlookApp> m_connection = m_device.connect();
};

} // namespace

TEST_F(OutlookCollectionTest, RestrictsItems)
{
    const struct
    {
        OutlookFolder folder;
        std::u16string restriction;
        const char *names; ///< "none" if it makes no sense
    } cases[] = {
        {OutlookFolder::Calendar, u"[Start] >= <40134.52 OR ([IsRecurring] = TRUE AND [End] > <40134.52)",
         "Daily Later Soon"},
        {OutlookFolder::Calendar, u"[Start] >= <40134.52", "Later Soon"},
        {OutlookFolder::Calendar, u"\t[ START ]>=40134.52 and[subject]<>\"LATER\" ", "Soon"},
        {OutlookFolder::Calendar, u"[Start] <= <40118.375", "Daily Ended"},
        {OutlookFolder::Calendar, u"[Subject] > 'past' AND [End] <= 40134.79166666667", "Soon"},
        {OutlookFolder::Tasks, u"[DueDate] < <40134.00 AND [Complete] = FALSE", "Late Early"},
        {OutlookFolder::Contacts, u"[FileAs] >= 'bob'", "Bob Zac zoe"},
        {OutlookFolder::Contacts, u"[Start] > 1", "none"},
        {OutlookFolder::Calendar, u"[Start] = TRUE", "none"},
        {OutlookFolder::Calendar, u"[IsRecurring] = 1", "none"},
        {OutlookFolder::Calendar, u"[Subject] = <1", "none"},
        {OutlookFolder::Calendar, u"", "none"},
        {OutlookFolder::Calendar, u"[Start] >= <", "none"},
        {OutlookFolder::Calendar, u"[Start] >= 1.2.3", "none"},
        {OutlookFolder::Calendar, u"[Start] >= 1 AND", "none"},
        {OutlookFolder::Calendar, u"[Start] >= 1 [Start] >= 1", "none"},
        {OutlookFolder::Calendar, u"([Start] >= 1", "none"},
        {OutlookFolder::Calendar, u"[Start] >= 1)", "none"},
        {OutlookFolder::Calendar, u"[IsRecurring] = TRUEST", "none"},
        {OutlookFolder::Calendar, u"[Subject] = 'x", "none"},
        {OutlookFolder::Calendar, std::u16string(101, u'(') + u"[Start] > 1" + std::u16string(101, u')'),
         "none"},
        {OutlookFolder::Calendar, std::u16string(65536, u' ') + u"[Start] > 1", "none"},
    };
    for (const auto &each : cases)
        EXPECT_EQ(namesIn(items(each.folder)->Restrict(each.restriction).get()), QLatin1String(each.names))
            << QString::fromStdU16String(each.restriction).left(80).toStdString();
    const auto restricted = items()->Restrict(u"[IsRecurring] = FALSE");
    EXPECT_EQ(namesIn(restricted->Restrict(u"[Start] < 40135").get()), QLatin1String("Past Soon"));
}

TEST_F(OutlookCollectionTest, OrdersItems)
{
    const auto tasks = items(OutlookFolder::Tasks);
    EXPECT_EQ(namesIn(tasks.get()), QLatin1String("Late Now Done Early"));
    EXPECT_TRUE(tasks->Sort(u"DueDate", true));
    EXPECT_EQ(namesIn(tasks.get()), QLatin1String("Now Late Early Done"));
    EXPECT_TRUE(tasks->Sort(u"[complete]", false));
    EXPECT_EQ(namesIn(tasks.get()), QLatin1String("Late Now Early Done"));
}

TEST_F(OutlookCollectionTest, OrdersOccurrences)
{
    const auto all = items();
    EXPECT_TRUE(all->put_IncludeRecurrences(true));
    const auto few = all->Restrict(u"[Start] > 40134 AND [End] < 40137");
    EXPECT_EQ(namesIn(few.get()), QLatin1String("Daily Soon Daily Daily Later"));
    EXPECT_TRUE(few->Sort(u"Subject", true));
    EXPECT_EQ(namesIn(few.get()), QLatin1String("Soon Later Daily Daily Daily"));
    EXPECT_TRUE(few->put_IncludeRecurrences(false));
    EXPECT_EQ(namesIn(few.get()), QLatin1String("Soon Later"));
}

TEST_F(OutlookCollectionTest, WorksOutOccurrencesAsTheyAreAskedFor)
{
    for (int i = 0; i < 10; ++i)
        m_device.writeEvent("daily" + QByteArray::number(i),
                            "DTSTART:20091101T090000\r\nRRULE:FREQ=DAILY\r\n");
    const auto all = items();
    all->put_IncludeRecurrences(true);
    QElapsedTimer timer;
    timer.start();
    const auto coming = all->Restrict(u"[Start] >= <40000 AND [Start] < <41118");
    EXPECT_TRUE(coming->Item(10));
    const qint64 few = timer.nsecsElapsed();
    timer.start();
    EXPECT_EQ(coming->get_Count(), 11 * 1000 + 3 + 3);
    EXPECT_LT(few * 10, timer.nsecsElapsed());
    m_device.writeEvent("minutely", "DTSTART:20091101T090000\r\nRRULE:FREQ=MINUTELY\r\n");
    const auto endless = items();
    endless->put_IncludeRecurrences(true);
    EXPECT_EQ(endless->get_Count(), 100000);
}

TEST_F(OutlookCollectionTest, KeepsItemsWhenTheirFilesAndTheConnectionAreGone)
{
    const auto contacts = items(OutlookFolder::Contacts);
    const auto appointment = items()->Item(1);
    const auto properties = appointment->QueryItem();
    const auto folder = m_connection->GetDefaultFolder(OutlookFolder::Tasks)->QueryItem();
    QFile::remove(m_device.path(QStringLiteral("contacts/all.vcf")));
    EXPECT_EQ(namesIn(*m_connection, OutlookFolder::Contacts), QString());
    m_connection.reset();
    EXPECT_EQ(namesIn(contacts.get()), QLatin1String("adam Bob Zac zoe"));
    EXPECT_GT(properties->get_Oid().value_or(0), 0);
    EXPECT_FALSE(properties->SetProps(0, {}));
    EXPECT_TRUE(folder->SetProps(0, {{platform::folderNotifications, 0, 0, platform::remoteChanges}}));
    EXPECT_FALSE(folder->SetProps(0, {{1, 0, 0, 1}}));
    EXPECT_FALSE(folder->get_Oid());
}

TEST(VariantDate, IsADayAndAFraction)
{
    const struct
    {
        double number;
        const char *moment; ///< empty if there is none
    } cases[] = {
        {0, "1899-12-30T00:00:00"},
        {40134.52, "2009-11-17T12:28:48"},
        {40134.999999, "2009-11-18T00:00:00"},
        {-1.25, "1899-12-29T06:00:00"},
        {platform::noDate, "4501-01-01T00:00:00"},
        {platform::firstDay, "0100-01-01T00:00:00"},
        {2958465.5, "9999-12-31T12:00:00"},
        {2958465.999999, ""},
        {2958466, ""},
        {-657435, ""},
        {1e300, ""},
        {std::numeric_limits<double>::quiet_NaN(), ""},
    };
    for (const auto &each : cases) {
        const auto time = platform::toSystemTime(each.number);
        EXPECT_EQ(time.has_value(), *each.moment != 0) << each.number;
        if (!time)
            continue;
        const QDateTime moment(QDate(time->year, time->month, time->day),
                               QTime(time->hour, time->minute, time->second));
        EXPECT_EQ(moment.toString(Qt::ISODate), QLatin1String(each.moment));
        EXPECT_EQ(time->dayOfWeek, moment.date().dayOfWeek() % 7);
        EXPECT_NEAR(platform::toVariantDate(*time).value_or(0), each.number, 1e-5);
        EXPECT_NEAR(platform::toVariantDate(moment), each.number, 1e-5);
    }
    EXPECT_FALSE(platform::toVariantDate(platform::SystemTime{2009, 2, 0, 29, 0, 0, 0, 0}));
    EXPECT_FALSE(platform::toVariantDate(platform::SystemTime{2009, 2, 0, 28, 24, 0, 0, 0}));
    EXPECT_FALSE(platform::toVariantDate(platform::SystemTime{99, 2, 0, 28, 0, 0, 0, 0}));
}
