#include "contracts/backend.h"
#include "contracts/outlook.h"
#include "contracts/outlooksamples.h"
#include "contracts/texts.h"

#include <gmock/gmock.h>

#include <array>
#include <limits>
#include <sstream>

using contracts::shown;
using platform::ContactDate;
using platform::OutlookFolder;
using platform::SystemTime;
using platform::OutlookMessage::itemChanged;
using platform::OutlookMessage::itemCreated;
using platform::OutlookMessage::itemDeleted;

namespace {

constexpr int mostShown = 5;

/// Its name; of a recurring appointment, its start, too.
std::string described(platform::IPOutlookItem *item)
{
    std::ostringstream text;
    text.precision(10);
    if (auto *const appointment = dynamic_cast<platform::IAppointment *>(item)) {
        text << shown(appointment->get_Subject());
        if (appointment->get_IsRecurring().value_or(true))
            text << ' ' << appointment->get_Start().value_or(0);
    } else if (auto *const task = dynamic_cast<platform::ITask *>(item)) {
        text << shown(task->get_Subject());
    } else if (auto *const contact = dynamic_cast<platform::IContact *>(item)) {
        text << shown(contact->get_Text(platform::ContactText::FileAs));
    }
    return text.str();
}

struct Query
{
    OutlookFolder folder = OutlookFolder::Calendar;
    std::u16string restriction; ///< empty for all items
    std::u16string sort; ///< empty for the folder's order
    bool isDescending = false;
    bool includesRecurrences = false;
    std::string expected; ///< the first items, "none" or "unsorted"
};

class OutlookContract : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_connection); }

    std::unique_ptr<platform::IPOutlookItemCollection> items(OutlookFolder folder)
    {
        const auto found = m_connection->GetDefaultFolder(folder);
        return found ? found->get_Items() : nullptr;
    }

    std::unique_ptr<platform::IPOutlookItem> item(OutlookFolder folder, const char16_t *restriction)
    {
        return items(folder)->Restrict(restriction)->Item(1);
    }

    std::string found(const Query &query)
    {
        auto found = items(query.folder);
        EXPECT_TRUE(found->put_IncludeRecurrences(query.includesRecurrences));
        if (!query.restriction.empty())
            found = found->Restrict(query.restriction);
        if (!found)
            return "none";
        if (!query.sort.empty() && !found->Sort(query.sort, query.isDescending))
            return "unsorted";
        std::string names;
        int count = 0;
        while (count < mostShown) {
            const auto next = found->Item(count + 1);
            if (!next)
                break;
            names += (count++ == 0 ? "" : ", ") + described(next.get());
        }
        const int all = found->get_Count().value_or(0);
        EXPECT_TRUE(all == count || (all > count && count == mostShown)) << all;
        for (const int beyond : {0, -1, all + 1})
            EXPECT_FALSE(found->Item(beyond)) << beyond;
        return names;
    }

    std::unique_ptr<contracts::OutlookStore> m_store = contracts::makeOutlookStore();
    std::unique_ptr<platform::IPOutlookApp> m_connection = m_store->connect();
};

} // namespace

TEST_F(OutlookContract, FindsItemsInOrder)
{
    constexpr auto calendar = OutlookFolder::Calendar;
    constexpr auto contacts = OutlookFolder::Contacts;
    constexpr auto tasks = OutlookFolder::Tasks;
    const Query queries[] = {
        {calendar, u"[Start] >= <40134.52 OR ([IsRecurring] = TRUE AND [End] > <40134.52)", u"Start", false,
         false, "Daily 40118.375, Weekly 40120.375, Soon, Later"},
        {calendar, u"[Start] >= <40134.52", u"Start", false, true,
         "Soon, Daily 40135.375, Daily 40136.375, Later, Daily 40137.375"},
        {calendar, u"[Start] >= <40134.52", u"Start", true, false, "Later, Soon"},
        {calendar, u"[Start] > 40120 AND [End] < 40142 AND [Subject] = 'Weekly'", u"Start", true, true,
         "Weekly 40141.375, Weekly 40134.375, Weekly 40127.375, Weekly 40120.375"},
        {calendar, u"[Start] = <40134.75", u"", false, false, "Soon"},
        {calendar, u"[Subject]='Soon' OR [Subject]='Past' AND [IsRecurring]=true", u"", false, false, "Soon"},
        {calendar, u"([Subject]='Soon' OR [Subject]='Past')AND([IsRecurring]=false)", u"Subject", false,
         false, "Past, Soon"},
        {calendar, u"[Start] > 50000", u"Start", false, false, ""},
        {calendar, u"[Start", u"", false, false, "none"},
        {calendar, u"[DueDate] > 1", u"", false, false, "none"},
        {calendar, u"", u"DueDate", false, false, "unsorted"},
        {tasks, u"[DueDate] < <40134.00 AND [Complete] = FALSE", u"StartDate", false, false, "Late, Early"},
        {tasks, u"[DueDate] = <40134.00 AND [Complete] = FALSE", u"StartDate", false, false, "Now"},
        {tasks, u"[DueDate] >= <40133.00 AND [Complete] = FALSE", u"DueDate", true, false, "Now, Late"},
        {tasks, u"", u"StartDate", false, false, "Done, Late, Early, Now"},
        {contacts, u"", u"", false, false, "adam, Bob, FileAs, Zac, zo\\u00eb\\ud83d\\ude00"},
        {contacts, u"[FileAs] >= 'bob' AND [FileAs] < 'zb'", u"FileAs", true, false, "Zac, FileAs, Bob"},
    };
    for (const Query &query : queries)
        EXPECT_EQ(found(query), query.expected) << shown(query.restriction);
}

TEST_F(OutlookContract, GivesPropertiesOfItems)
{
    const auto later = item(OutlookFolder::Calendar, u"[Subject] = 'Later'");
    auto *const appointment = dynamic_cast<platform::IAppointment *>(later.get());
    ASSERT_TRUE(appointment);
    EXPECT_EQ(appointment->get_Start(), 40136.5);
    EXPECT_EQ(appointment->get_IsRecurring(), false);

    const auto now = item(OutlookFolder::Tasks, u"[Subject] = 'Now'");
    auto *const task = dynamic_cast<platform::ITask *>(now.get());
    ASSERT_TRUE(task);
    EXPECT_EQ(task->get_StartDate(), platform::noDate);
    EXPECT_EQ(task->get_DueDate(), 40134.0);

    const auto full = item(OutlookFolder::Contacts, u"[FileAs] = 'FileAs'");
    const auto bob = item(OutlookFolder::Contacts, u"[FileAs] = 'Bob'");
    auto *const contact = dynamic_cast<platform::IContact *>(full.get());
    auto *const empty = dynamic_cast<platform::IContact *>(bob.get());
    ASSERT_TRUE(contact && empty);
    EXPECT_EQ(contact->get_Date(ContactDate::Birthday), contracts::sampleBirthday);
    EXPECT_EQ(contact->get_Date(ContactDate::Anniversary), contracts::sampleAnniversary);
    EXPECT_EQ(empty->get_Date(ContactDate::Birthday), platform::noDate);
    EXPECT_EQ(empty->get_Text(platform::ContactText::Body), u"");
    std::istringstream names(contracts::contactTextNames);
    std::string name;
    for (int i = 0; i < platform::contactTextCount && names >> name; ++i)
        EXPECT_EQ(shown(contact->get_Text(static_cast<platform::ContactText>(i))),
                  m_store->keepsText(name) ? name : "");
    EXPECT_FALSE(names >> name);

    const auto folder = m_connection->GetDefaultFolder(OutlookFolder::Contacts)->QueryItem();
    EXPECT_FALSE(folder->get_Oid());
    EXPECT_FALSE(folder->SetProps(0, {{1, 0, 0, 1}}));
    EXPECT_EQ(contact->get_Oid(), full->QueryItem()->get_Oid());
    for (const auto &each : {later.get(), now.get(), full.get()}) {
        const auto bundle = each->QueryItem();
        const std::int32_t oid = bundle->get_Oid().value_or(0);
        EXPECT_NE(oid, 0);
        EXPECT_EQ(described(m_connection->GetItemFromOid(oid).get()), described(each));
        EXPECT_FALSE(bundle->SetProps(0, {{platform::folderNotifications, 0, 0, 1}}));
    }
    EXPECT_NE(later->QueryItem()->get_Oid(), now->QueryItem()->get_Oid());
    EXPECT_FALSE(m_connection->GetItemFromOid(0));
    EXPECT_FALSE(m_connection->GetItemFromOid(12345678));
}

TEST_F(OutlookContract, LeavesItemsWhenTheConnectionEnds)
{
    const auto contacts = items(OutlookFolder::Contacts);
    const auto properties = item(OutlookFolder::Calendar, u"[Subject] = 'Soon'")->QueryItem();
    m_connection.reset();
    EXPECT_EQ(described(contacts->Item(2).get()), "Bob");
    EXPECT_NE(properties->get_Oid().value_or(0), 0);
}

TEST_F(OutlookContract, ConvertsDates)
{
    constexpr double beyond = 2958466;
    const struct
    {
        double date;
        SystemTime time; ///< year 0 if there is none
    } cases[] = {
        {0, {1899, 12, 6, 30, 0, 0, 0, 0}},
        {40134.52, {2009, 11, 2, 17, 12, 28, 48, 0}},
        {40134.499999, {2009, 11, 2, 17, 12, 0, 0, 0}},
        {-1.25, {1899, 12, 5, 29, 6, 0, 0, 0}},
        {401768, {2999, 12, 2, 31, 0, 0, 0, 0}},
        {platform::noDate, {4501, 1, 6, 1, 0, 0, 0, 0}},
        {-657434, {100, 1, 5, 1, 0, 0, 0, 0}},
        {beyond - 0.5, {9999, 12, 5, 31, 12, 0, 0, 0}},
        {beyond, {}},
        {-657435, {}},
        {1e300, {}},
        {std::numeric_limits<double>::quiet_NaN(), {}},
    };
    for (const auto &each : cases) {
        const SystemTime time = m_connection->VariantTimeToSystemTime(each.date).value_or(SystemTime());
        EXPECT_THAT((std::array{time.year, time.month, time.dayOfWeek, time.day, time.hour, time.minute,
                                time.second, time.milliseconds}),
                    testing::ElementsAre(each.time.year, each.time.month, each.time.dayOfWeek, each.time.day,
                                         each.time.hour, each.time.minute, each.time.second, 0))
            << each.date;
        if (time.year != 0) {
            EXPECT_NEAR(m_connection->SystemTimeToVariantTime(time).value_or(0), each.date, 1e-5);
        }
    }
    EXPECT_FALSE(m_connection->SystemTimeToVariantTime({2009, 13, 0, 1, 0, 0, 0, 0}));
}

TEST_F(OutlookContract, TellsTheWindowOfChanges)
{
    std::vector<platform::WindowMessage> told;
    const auto windows = m_store->windows().registerClass(
        u"KESTCMDPROV_MSGWND", [&told](const platform::WindowMessage &message) {
            const bool isChange = message.message >= itemCreated && message.message <= itemChanged;
            if (isChange)
                told.push_back(message);
            return isChange;
        });
    const auto window = windows->createWindow();
    ASSERT_TRUE(m_connection->Logon(window->handle()));
    const auto setNotifications = [this](std::int32_t value) {
        return m_connection->GetDefaultFolder(OutlookFolder::Calendar)
            ->QueryItem()
            ->SetProps(0, {{platform::folderNotifications, 0, 0, value}});
    };
    EXPECT_TRUE(setNotifications(platform::remoteChanges));
    std::uint64_t oid = 0;
    for (const std::uint32_t kind : {itemCreated, itemChanged, itemDeleted}) {
        told.clear();
        m_store->change(kind, u"New");
        ASSERT_TRUE(contracts::waitUntil([&told] { return !told.empty(); })) << kind;
        EXPECT_EQ(told[0].message, kind);
        EXPECT_EQ(told[0].lParam, static_cast<std::int32_t>(OutlookFolder::Calendar));
        oid = kind == itemCreated ? told[0].wParam : oid;
        EXPECT_EQ(told[0].wParam, oid);
        EXPECT_EQ(described(m_connection->GetItemFromOid(static_cast<std::int32_t>(oid)).get()),
                  kind == itemDeleted ? "" : "New");
    }

    const auto item = items(OutlookFolder::Calendar)->Item(1); // keeps the store, but no session
    const std::function<void()> endings[] = {[&] { EXPECT_TRUE(setNotifications(0)); },
                                             [&] { EXPECT_TRUE(m_connection->Logoff()); },
                                             [&] { m_connection.reset(); }};
    std::u16string subject = u"Unnoticed";
    for (const auto &end : endings) {
        m_connection = m_store->connect();
        ASSERT_TRUE(m_connection->Logon(window->handle()) && setNotifications(platform::remoteChanges));
        told.clear();
        end();
        m_store->change(itemCreated, subject += u'.');
        for (int i = 0; i < 20; ++i)
            contracts::processEvents();
        EXPECT_TRUE(told.empty()) << shown(subject);
    }
}
