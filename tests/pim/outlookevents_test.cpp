#include "pim/outlooktest.h"

#include "platform/desktop/desktophiddenwindows.h"

#include <QtTest/QTest>

using testing::ElementsAre;

namespace {

const std::map<QString, const char *> folders = {{QStringLiteral("Contacts"), "10"},
                                                 {QStringLiteral("Tasks"), "13"},
                                                 {QStringLiteral("Appointments"), "9"}};

class OutlookEventsTest : public OutlookTest
{
protected:
    /// Subscribes ("+Tasks") and unsubscribes ("-Tasks"). Returns how notifications were switched.
    QStringList subscribe(const QString &steps)
    {
        for (const QString &step : steps.split(QLatin1Char(' '))) {
            const char *call = step.startsWith(QLatin1Char('+')) ? "poomEventSuscribe(widget, cb, '%1')"
                                                                 : "poomEventUnSuscribe(widget, '%1')";
            run(QString::fromLatin1(call).arg(step.mid(1)));
        }
        return m_outlook.takeCalls();
    }

    bool post(std::uint32_t message, std::uint64_t oid, std::int64_t folder)
    {
        return static_cast<platform::DesktopHiddenWindows &>(m_platform->hiddenWindows())
            .post(m_outlook.window, {message, oid, folder});
    }
};

} // namespace

TEST_F(OutlookEventsTest, NotificationsAreOnWhileThereAreSubscriptions)
{
    const char on[] = "%1: set 0 10010013 0 0 1";
    const char off[] = "%1: set 0 10010013 0 0 0";
    struct Case
    {
        const char *steps;
        std::vector<const char *> calls;
    };
    for (const auto &[folder, number] : folders) {
        const Case cases[] = {
            {"-%1", {}},   {"+%1", {on}},  {"+%1", {}}, {"-%1", {}}, {"-%1 -%1 -%1", {off}},
            {"+%1", {on}}, {"-%1", {off}},
        };
        for (const Case &step : cases) {
            QStringList expected;
            for (const char *call : step.calls)
                expected.append(QString::fromLatin1(call).arg(QLatin1String(number)));
            EXPECT_EQ(subscribe(QString::fromLatin1(step.steps).arg(folder)), expected)
                << folder.toStdString() << ' ' << step.steps;
        }
    }
    EXPECT_EQ(subscribe(QStringLiteral("+contacts +Calendar -tasks")), QStringList());

    m_outlook.hasFolders = false;
    EXPECT_EQ(subscribe(QStringLiteral("+Tasks")), QStringList());
    m_outlook.hasFolders = true;
    EXPECT_EQ(subscribe(QStringLiteral("+Tasks")), QStringList()) << "the first one counts all the same";
    connectAgain();
    EXPECT_EQ(subscribe(QStringLiteral("+Tasks")), QStringList(QStringLiteral("13: set 0 10010013 0 0 1")));
}

TEST_F(OutlookEventsTest, ChangesAreToldToTheFoldersSubscribers)
{
    run(QStringLiteral(
        "function tell(folder) { return function (kind, oid) { results.push([folder, kind, oid]); }; }"
        "['Contacts', 'Tasks', 'Appointments', 'contacts'].forEach(function (folder) {"
        "  poomEventSuscribe(widget, tell(folder), folder); });"));
    EXPECT_TRUE(post(0x8105, 1, 10));
    post(0x8106, 0xFFFFFFFE, 13);
    post(0x8107, 3, 9);
    post(0x8104, 4, 10); // some other message
    post(0x8108, 5, 10);
    post(0x8105, 6, 77); // some other folder
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return run(QStringLiteral("results.length")) == QLatin1String("4"); }));
    EXPECT_EQ(
        run(QStringLiteral("results")),
        QStringLiteral("[[\"Contacts\",0,1],[\"Tasks\",0,-2],[\"Appointments\",0,3],[\"contacts\",0,6]]"));

    run(QStringLiteral(
        "results = []; poomEventUnSuscribe(widget, 'Contacts'); poomEventUnSuscribe(widget, 'x')"));
    post(0x8107, 1, 10);
    post(0x8107, 1, 77);
    post(0x8107, 1, 13);
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return run(QStringLiteral("results.length")) == QLatin1String("1"); }));
    EXPECT_EQ(run(QStringLiteral("results")), QStringLiteral("[[\"Tasks\",0,1]]"));
}

TEST_F(OutlookEventsTest, UnloadClosesTheConnection)
{
    const platform::WindowHandle window = m_outlook.window;
    EXPECT_NE(window, 0U);
    m_provider.Unload();
    EXPECT_EQ(m_outlook.takeCalls(), QStringList({QStringLiteral("logoff"), QStringLiteral("release")}));
    EXPECT_FALSE(post(0x8107, 1, 10)) << "the window is still there";
    m_provider.BeginInitialize();
    EXPECT_NE(m_outlook.window, 0U) << "the class was not unregistered";
}

TEST_F(OutlookEventsTest, WithoutConnectionEveryFunctionSaysSo)
{
    m_outlook.isThere = false;
    connectAgain();
    const char *const calls[] = {
        "selectContact(this, cb)",
        "contactImage(this, cb, 1, 'a.png', false)",
        "contactInfo(1, this, cb)",
        "poomEventSuscribe(widget, cb, 'Tasks')",
        "poomEventUnSuscribe(widget, 'Tasks')",
        "getAppointments(this, cb)",
        "getTasks(this, cb)",
    };
    for (const char *call : calls) {
        const QString function = QString::fromLatin1(call).section(QLatin1Char('('), 0, 0);
        run(QString::fromLatin1(call) + QLatin1String("; ") + function + QLatin1String("(5)"));
        const QString report = QStringLiteral("[Error] %1: Could not access Pocket Outlook.").arg(function);
        EXPECT_EQ(takeMessages(), QStringList({report, report})) << call;
    }
    EXPECT_EQ(run(QStringLiteral("results")), QStringLiteral("[]"));
}
