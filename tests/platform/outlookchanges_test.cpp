#include "platform/desktop/sqlitedatabase.h"
#include "support/outlookdevice.h"
#include "support/processortime.h"

#include <QtCore/QElapsedTimer>
#include <QtTest/QTest>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using platform::OutlookFolder;
using platform::OutlookMessage::itemChanged;
using platform::OutlookMessage::itemCreated;
using platform::OutlookMessage::itemDeleted;

namespace {

constexpr int longestWait = 60000;
const QByteArray otherTime = "DTSTART:20091118T090000\r\n";

QtMessageHandler previousHandler = nullptr;
QStringList warnings;

void noteWarning(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type == QtWarningMsg)
        warnings.append(text.section(QLatin1Char('/'), -1));
    else
        previousHandler(type, context, text);
}

/// Writes files as other programs do, and notes what is told of them.
class OutlookChangesTest : public testing::Test
{
protected:
    void SetUp() override
    {
        warnings.clear();
        previousHandler = qInstallMessageHandler(noteWarning);
        m_class =
            m_device.windows().registerClass(u"listener", [this](const platform::WindowMessage &message) {
                note(message);
                return true;
            });
        m_window = m_class->createWindow();
        ASSERT_TRUE(m_connection && m_connection->Logon(m_window->handle()));
    }

    void TearDown() override { qInstallMessageHandler(previousHandler); }

    void note(const platform::WindowMessage &message)
    {
        EXPECT_EQ(message.lParam, 9);
        const QString kind = message.message == itemCreated ? QStringLiteral("+")
            : message.message == itemChanged                ? QStringLiteral("*")
            : message.message == itemDeleted                ? QStringLiteral("-")
                                                            : QStringLiteral("?");
        m_told.append(kind + QString::number(message.wParam));
    }

    bool setNotifications(std::int32_t value)
    {
        const auto folder = m_connection->GetDefaultFolder(OutlookFolder::Calendar)->QueryItem();
        return folder->SetProps(0, {{platform::folderNotifications, 0, 0, value}});
    }

    /// What is told until it is @p expected, and then for a while; and forgets it.
    QString told(const QString &expected)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_told.join(QLatin1Char(' ')) == expected; }, longestWait));
        QTest::qWait(80);
        QString all = m_told.join(QLatin1Char(' '));
        m_told.clear();
        return all;
    }

    QByteArray file(const char *name) const
    {
        return QFile::encodeName(m_device.path(QStringLiteral("calendar/") + QLatin1String(name)));
    }

    void move(const char *from, const char *to) const
    {
        EXPECT_EQ(::rename(file(from).constData(), file(to).constData()), 0);
    }

    void addLink(const char *from, const char *to) const
    {
        EXPECT_EQ(::link(file(from).constData(), file(to).constData()), 0);
    }

    void remove(const char *name) const { EXPECT_EQ(::unlink(file(name).constData()), 0); }

    QString calendar() { return namesIn(*m_connection, OutlookFolder::Calendar); }

    std::int32_t idOf(int index)
    {
        const auto items = m_connection->GetDefaultFolder(OutlookFolder::Calendar)->get_Items();
        return items->Item(index)->QueryItem()->get_Oid().value_or(0);
    }

    OutlookDevice m_device;
    QStringList m_told;
    std::unique_ptr<platform::HiddenWindowClass> m_class;
    std::unique_ptr<platform::HiddenWindow> m_window;
    std::unique_ptr<platform::IPOutlookApp> m_connection = m_device.connect();
};

testing::Matcher<QString> begins(const char *text)
{
    return testing::Property(&QString::toStdString, testing::StartsWith(text));
}

#define EXPECT_TOLD(expected) EXPECT_EQ(told(QStringLiteral(expected)), QStringLiteral(expected))

} // namespace

TEST_F(OutlookChangesTest, TellsEachSaveOnceWhateverWayItIsMade)
{
    m_device.writeEvent("a");
    m_device.writeEvent("b");
    ASSERT_TRUE(setNotifications(1));
    m_device.writeEvent("a", otherTime);
    EXPECT_TOLD("*1");
    m_device.writeEvent("a", otherTime);
    EXPECT_TOLD("");

    m_device.write(QStringLiteral("calendar/.a.tmp"),
                   OutlookDevice::calendar(OutlookDevice::event("a", "renamed")));
    move(".a.tmp", "a.ics");
    EXPECT_TOLD("*1");
    move("a.ics", "a.ics~");
    m_device.writeEvent("a");
    remove("a.ics~");
    EXPECT_TOLD("*1");

    m_device.write(QStringLiteral("calendar/x.tmp"), OutlookDevice::calendar(OutlookDevice::event("c", "c")));
    addLink("x.tmp", "c.ics");
    remove("x.tmp");
    EXPECT_TOLD("+3");

    move("a.ics", "z.ics");
    EXPECT_TOLD("");
    remove("z.ics");
    EXPECT_TOLD("-1");
    m_device.writeEvent("a");
    EXPECT_TOLD("+1");

    m_device.writeEvent("b", otherTime);
    m_device.writeEvent("d");
    EXPECT_EQ(calendar(), QStringLiteral("a b c d"));
    EXPECT_TOLD("*2 +4");
    EXPECT_FALSE(setNotifications(2));
    EXPECT_THAT(warnings, testing::ElementsAre());
}

TEST_F(OutlookChangesTest, TellsManyInOrderWithoutAFreeze)
{
    constexpr int count = 500;
    ASSERT_TRUE(setNotifications(1));
    for (int i = 0; i < count; ++i)
        m_device.writeEvent("e" + QByteArray::number(i * 7 % count));
    ProcessorTime turn(ProcessorTime::Of::Thread);
    double longest = 0;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            longest = std::max(longest, turn.seconds());
            turn = ProcessorTime(ProcessorTime::Of::Thread);
            return m_told.size() >= count;
        },
        longestWait));
    EXPECT_LT(longest, 0.1);
    QTest::qWait(50);
    ASSERT_EQ(m_told.size(), count);
    for (int i = 0; i < count; ++i)
        EXPECT_EQ(m_told.at(i), QStringLiteral("+%1").arg(i + 1));
    EXPECT_TRUE(m_connection->GetItemFromOid(count));
    EXPECT_FALSE(m_connection->GetItemFromOid(count + 1));
}

TEST_F(OutlookChangesTest, WaitsForTheEndOfASlowSave)
{
    m_device.writeEvent("a");
    m_device.write(QStringLiteral("calendar/broken.ics"), "BEGIN:VCALENDAR\r\nnonsense");
    const auto setInFuture = [this](const char *name) {
        const timespec future[] = {{4000000000, 0}, {4000000000, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, file(name).constData(), future, 0), 0);
    };
    setInFuture("broken.ics");
    ASSERT_TRUE(setNotifications(1));
    const QByteArray contents[] = {OutlookDevice::calendar(OutlookDevice::event("a", "slow")),
                                   OutlookDevice::calendar(OutlookDevice::event("b", "too"))};
    QFile files[] = {QFile(QFile::decodeName(file("a.ics"))), QFile(QFile::decodeName(file("b.ics")))};
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(files[i].open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        files[i].write(contents[i].left(contents[i].size() / 2));
    }
    setInFuture("a.ics");
    EXPECT_EQ(calendar(), QStringLiteral("a"));
    EXPECT_THAT(warnings, testing::ElementsAre());
    QTest::qWait(2500);
    EXPECT_EQ(calendar(), QStringLiteral("a"));
    EXPECT_THAT(warnings, testing::ElementsAre(begins("broken.ics: ")));
    warnings.clear();
    for (int i = 0; i < 2; ++i) {
        files[i].write(contents[i].mid(contents[i].size() / 2));
        files[i].close();
    }
    EXPECT_TOLD("*1 +2");
    EXPECT_EQ(calendar(), QStringLiteral("slow too"));
    EXPECT_THAT(warnings, testing::ElementsAre());
}

TEST_F(OutlookChangesTest, FindsTheFolderAgain)
{
    m_device.writeEvent("a");
    ASSERT_TRUE(setNotifications(1));
    const QString folder = m_device.path(QStringLiteral("calendar"));
    ASSERT_TRUE(QDir(folder).removeRecursively());
    EXPECT_TOLD("-1");
    m_device.writeEvent("a");
    EXPECT_TOLD("+1");
    QDir().rename(folder, folder + QStringLiteral(".away"));
    EXPECT_EQ(calendar(), QString());
    EXPECT_TOLD("-1");
    m_device.write(QStringLiteral("elsewhere/b.ics"),
                   OutlookDevice::calendar(OutlookDevice::event("b", "b")));
    QFile::link(m_device.path(QStringLiteral("elsewhere")), folder);
    EXPECT_TOLD("+2");
    m_device.write(QStringLiteral("elsewhere/c.ics"),
                   OutlookDevice::calendar(OutlookDevice::event("c", "c")));
    EXPECT_TOLD("+3");
}

TEST_F(OutlookChangesTest, TellsOnceWhatCannotBeRead)
{
    m_device.write(QStringLiteral("calendar/broken\n.ics"), "BEGIN:VCALENDAR\r\nnonsense");
    m_device.write(QStringLiteral("calendar/huge.ics"), QByteArray());
    ASSERT_TRUE(QFile::resize(QFile::decodeName(file("huge.ics")), (16 << 20) + 1));
    ASSERT_EQ(mkfifo(file("pipe.ics").constData(), 0600), 0);
    ASSERT_EQ(symlink("nowhere", file("link.ics").constData()), 0);
    m_device.write(QStringLiteral("calendar/.hidden.ics"), "nonsense");
    m_device.writeEvent("good");
    m_device.write(QStringLiteral("calendar/partly.ics"),
                   OutlookDevice::calendar(OutlookDevice::event("part", "part")
                                           + OutlookDevice::event("never", "never", "COMMENT:x\r\n")));
    const timespec longAgo[] = {{1000000000, 0}, {1000000000, 0}};
    for (const char *name : {"broken\n.ics", "huge.ics", "pipe.ics"})
        ASSERT_EQ(utimensat(AT_FDCWD, file(name).constData(), longAgo, 0), 0);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(calendar(), QStringLiteral("good part"));
    EXPECT_THAT(warnings,
                testing::ElementsAre(begins("broken\\n.ics: "), begins("huge.ics: it is larger"),
                                     begins("link.ics: "), begins("partly.ics: the event never "),
                                     begins("pipe.ics: ")));
    warnings.clear();
    ASSERT_TRUE(setNotifications(1));
    m_device.write(QStringLiteral("calendar/good.ics"), "BEGIN:VCALENDAR\r\nnonsense");
    EXPECT_EQ(calendar(), QStringLiteral("part"));
    EXPECT_TOLD("-1");
    EXPECT_THAT(warnings, testing::ElementsAre(begins("good.ics: ")));
    m_device.write(QStringLiteral("calendar/broken\n.ics"),
                   OutlookDevice::calendar(OutlookDevice::event("broken", "broken")));
    m_device.writeEvent("nowhere");
    EXPECT_EQ(calendar(), QStringLiteral("part broken nowhere"));
}

TEST_F(OutlookChangesTest, KeepsIdentifiers)
{
    m_device.write(QStringLiteral("calendar/two.ics"),
                   OutlookDevice::calendar(OutlookDevice::event("a", "a") + OutlookDevice::event("b", "b")));
    m_device.write(QStringLiteral("calendar/copy.ics"),
                   OutlookDevice::calendar(OutlookDevice::event("a", "copy")));
    EXPECT_EQ(calendar(), QStringLiteral("copy a b"));
    const auto other = m_device.connect();
    move("two.ics", "one.ics");
    EXPECT_EQ(namesIn(*other, OutlookFolder::Calendar), QStringLiteral("copy a b"));
    m_device.writeEvent("c");
    EXPECT_EQ(namesIn(*other, OutlookFolder::Calendar), QStringLiteral("copy a b c"));
    EXPECT_EQ(calendar(), QStringLiteral("copy a b c"));
    remove("c.ics");
    EXPECT_FALSE(m_connection->GetItemFromOid(4));
    m_device.writeEvent("d");
    EXPECT_EQ(calendar(), QStringLiteral("copy a b d"));
    m_device.writeEvent("c");
    m_connection.reset();
    m_connection = m_device.connect();
    EXPECT_EQ(calendar(), QStringLiteral("copy a b c d"));
    EXPECT_EQ(idOf(4), 4);
    EXPECT_EQ(idOf(5), 5);
    const auto item = m_connection->GetItemFromOid(5);
    ASSERT_TRUE(dynamic_cast<platform::IAppointment *>(item.get()));
    EXPECT_EQ(item->QueryItem()->get_Oid(), 5);
}

TEST_F(OutlookChangesTest, WaitsForOthersWithoutAFreeze)
{
    m_device.writeEvent("a");
    ASSERT_TRUE(setNotifications(1));
    platform::SqliteDatabase other;
    ASSERT_TRUE(other.open(m_device.path(QStringLiteral("items.db"))));
    ASSERT_TRUE(other.execute("BEGIN IMMEDIATE"));
    QElapsedTimer timer;
    qint64 quickest = longestWait;
    for (int i = 0; i < 5; ++i) { // because the machine may be busy
        timer.start();
        m_connection.reset();
        m_connection = m_device.connect();
        ASSERT_TRUE(m_connection && m_connection->Logon(m_window->handle()));
        ASSERT_TRUE(setNotifications(1));
        EXPECT_EQ(calendar(), QStringLiteral("a"));
        quickest = std::min(quickest, timer.elapsed());
    }
    EXPECT_LT(quickest, 150);
    m_device.writeEvent("b");
    timer.start();
    EXPECT_EQ(calendar(), QStringLiteral("none"));
    EXPECT_LT(timer.elapsed(), 1000);
    QTest::qWait(1500);
    EXPECT_THAT(warnings, testing::ElementsAre(begins("items.db: database is locked")));
    ASSERT_TRUE(other.execute("COMMIT"));
    EXPECT_TOLD("+2");
}

TEST_F(OutlookChangesTest, LooksAgainWhereTooMuchHappenedToBeTold)
{
    m_device.writeEvent("a");
    m_device.writeEvent("b");
    ASSERT_TRUE(setNotifications(1));
    QFile limit(QStringLiteral("/proc/sys/fs/inotify/max_queued_events"));
    ASSERT_TRUE(limit.open(QIODevice::ReadOnly));
    for (int i = limit.readAll().trimmed().toInt() / 2; i >= 0; --i) {
        ASSERT_EQ(utimensat(AT_FDCWD, file("a.ics").constData(), nullptr, 0), 0);
        ASSERT_EQ(utimensat(AT_FDCWD, file("b.ics").constData(), nullptr, 0), 0);
    }
    m_device.writeEvent("c");
    EXPECT_TOLD("+3");
}

TEST(OutlookStore, TellsWhatIsWrongWithItsDatabase)
{
    previousHandler = qInstallMessageHandler(noteWarning);
    const std::pair<const char *, const char *> cases[] = {
        {"PRAGMA user_version = 2", "items.db: it is from a newer version of holm"},
        {"DROP TABLE item", "items.db: no such table"},
        {"INSERT INTO item VALUES (2147483647, 9, 'x', 'x', 0)", "items.db: no identifiers are left"},
        {nullptr, "items.db: file is not a database"},
    };
    for (const auto &[sql, problem] : cases) {
        OutlookDevice device;
        device.writeEvent("a");
        if (sql) {
            platform::SqliteDatabase database;
            ASSERT_TRUE(device.connect() && database.open(device.path(QStringLiteral("items.db"))));
            ASSERT_TRUE(database.execute(sql));
        } else {
            device.write(QStringLiteral("items.db"),
                         "no database, but long enough to be looked at as if it were one");
        }
        warnings.clear();
        const auto connection = device.connect();
        EXPECT_EQ(connection ? namesIn(*connection, OutlookFolder::Calendar) : QStringLiteral("none"),
                  QStringLiteral("none"));
        EXPECT_THAT(warnings, testing::ElementsAre(begins(problem)));
    }
    qInstallMessageHandler(previousHandler);
}
