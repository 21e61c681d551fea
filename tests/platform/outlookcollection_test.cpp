#include "platform/desktop/outlook/variantdate.h"
#include "support/outlookdevice.h"

#include <QtCore/QElapsedTimer>

using platform::OutlookFolder;

namespace {

class OutlookCollectionTest : public testing::Test
{
protected:
    /// 40134 is 17 November 2009.
    void SetUp() override
    {
        m_device.writeEvent("Soon", "DTSTART:20091117T180000\r\nDTEND:20091117T190000\r\n");
        m_device.writeEvent("Later", "DTSTART:20091119T090000\r\nDTEND:20091119T100000\r\n");
        m_device.writeEvent("Ended", "DTSTART:20091001T090000\r\nRRULE:FREQ=DAILY;COUNT=3\r\n");
        m_device.writeEvent("Daily", "DTSTART:20091101T090000\r\nRRULE:FREQ=DAILY\r\n");
    }

    std::unique_ptr<platform::IPOutlookItemCollection> items()
    {
        return m_connection->GetDefaultFolder(OutlookFolder::Calendar)->get_Items();
    }

    OutlookDevice m_device;
    std::unique_ptr<platform::IPOutlookApp> m_connection = m_device.connect();
};

} // namespace

TEST_F(OutlookCollectionTest, RestrictsItems)
{
    const struct
    {
        std::u16string restriction;
        const char *names; ///< "none" if it makes no sense
    } cases[] = {
        {u"\t[ START ]>=40134.52 and[subject]<>\"LATER\" ", "Soon"},
        {u"[Start] <= <40118.375", "Daily Ended"},
        {u"[Subject] > 'later' AND [End] <= 40134.79166666667", "Soon"},
        {u"[Start] = TRUE", "none"},
        {u"[IsRecurring] = 1", "none"},
        {u"[Subject] = <1", "none"},
        {u"", "none"},
        {u"[Start] >= <", "none"},
        {u"[Start] >= 1.2.3", "none"},
        {u"[Start] >= 1 AND", "none"},
        {u"[Start] >= 1 [Start] >= 1", "none"},
        {u"([Start] >= 1", "none"},
        {u"[Start] >= 1)", "none"},
        {u"[IsRecurring] = TRUEST", "none"},
        {u"[Subject] = 'x", "none"},
        {std::u16string(101, u'(') + u"[Start] > 1" + std::u16string(101, u')'), "none"},
        {std::u16string(65536, u' ') + u"[Start] > 1", "none"},
    };
    for (const auto &each : cases)
        EXPECT_EQ(namesIn(items()->Restrict(each.restriction).get()), QLatin1String(each.names))
            << QString::fromStdU16String(each.restriction).left(80).toStdString();
    const auto restricted = items()->Restrict(u"[IsRecurring] = FALSE");
    EXPECT_EQ(namesIn(restricted->Restrict(u"[Start] < 40135").get()), QLatin1String("Soon"));
}

TEST_F(OutlookCollectionTest, OrdersOccurrences)
{
    const auto all = items();
    EXPECT_TRUE(all->put_IncludeRecurrences(true));
    const auto few = all->Restrict(u"[Start] > 40134 AND [End] < 40137");
    EXPECT_EQ(namesIn(few.get()), QLatin1String("Daily Soon Daily Daily Later"));
    EXPECT_TRUE(few->Sort(u"[subject]", true));
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
    EXPECT_EQ(coming->get_Count(), 11 * 1000 + 3 + 2);
    EXPECT_LT(few * 10, timer.nsecsElapsed());
    m_device.writeEvent("minutely", "DTSTART:20091101T090000\r\nRRULE:FREQ=MINUTELY\r\n");
    const auto endless = items();
    endless->put_IncludeRecurrences(true);
    EXPECT_EQ(endless->get_Count(), 100000);
}

TEST_F(OutlookCollectionTest, KeepsItemsWhenTheirFilesAndTheConnectionAreGone)
{
    const auto kept = items()->Restrict(u"[IsRecurring] = FALSE");
    const auto folder = m_connection->GetDefaultFolder(OutlookFolder::Tasks)->QueryItem();
    QDir(m_device.path(QStringLiteral("calendar"))).removeRecursively();
    EXPECT_EQ(namesIn(items().get()), QString());
    m_connection.reset();
    EXPECT_EQ(namesIn(kept.get()), QLatin1String("Later Soon"));
    EXPECT_TRUE(folder->SetProps(0, {{platform::folderNotifications, 0, 0, platform::remoteChanges}}));
}

TEST(VariantDate, RoundsToDaysOfTheCalendarOnly)
{
    using platform::SystemTime;
    const SystemTime rounded = platform::toSystemTime(40134.999999).value_or(SystemTime());
    EXPECT_EQ(std::pair(rounded.day, rounded.dayOfWeek), std::pair(std::uint16_t(18), std::uint16_t(3)));
    EXPECT_FALSE(platform::toSystemTime(2958465.999999)); // a day too many
    for (const SystemTime &none :
         {SystemTime{2009, 2, 0, 29, 0, 0, 0, 0}, {2009, 2, 0, 28, 24, 0, 0, 0}, {99, 2, 0, 28, 0, 0, 0, 0}})
        EXPECT_FALSE(platform::toVariantDate(none)) << none.year << ' ' << none.hour;
}
