#include "pim/outlooktest.h"

namespace {

/// The subjects in what the callback got, with one blank between them.
const char subjects[] = "; results[0][0].map(function (item) { return item.subject; }).join(' ')";

QString inQuotes(const QString &text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

} // namespace

TEST_F(OutlookTest, GetAppointmentsAsksTwice)
{
    m_outlook.appointments = {{QStringLiteral("Lunch"), 40134.5625},
                              {QStringLiteral("Tea \"time\""), 40135.0}};
    EXPECT_EQ(run(QStringLiteral("getAppointments(this, cb); results")),
              QStringLiteral("[[[{\"subject\":\"Lunch\",\"startDate\":\"11/17/2009 13:30\"},"
                             "{\"subject\":\"Tea \\\"time\\\"\",\"startDate\":\"11/18/2009 00:00\"}]]]"));
    EXPECT_EQ(
        m_outlook.takeCalls(),
        QStringList({QStringLiteral("restrict [Start] >= <40134.52 OR ([IsRecurring] = TRUE AND [End] > "
                                    "<40134.52)"),
                     QStringLiteral("count"), QStringLiteral("recurrences 1"),
                     QStringLiteral("restrict [Start] >= <40134.52"), QStringLiteral("sort Start 0")}));

    m_outlook.matchingCount = 0;
    EXPECT_EQ(run(QStringLiteral("results = []; getAppointments(this, cb); results")),
              QStringLiteral("[[[]]]"));
    EXPECT_EQ(m_outlook.takeCalls().size(), 2) << "the second query was made";
    m_outlook.hasFolders = false;
    EXPECT_EQ(run(QStringLiteral("results = []; getAppointments(this, cb); results")),
              QStringLiteral("[[[]]]"));
}

TEST_F(OutlookTest, GetAppointmentsStopsInTime)
{
    const FakeItem once{QStringLiteral("o"), 40200};
    FakeItem series{QStringLiteral("s"), 40200};
    series.isRecurring = true;
    FakeItem lost{QStringLiteral("x"), 40200};
    lost.isFetchable = false;
    FakeItem timeless{QStringLiteral("t"), 1e300};
    const std::vector<FakeItem> many(20, once);
    struct Case
    {
        std::vector<FakeItem> items;
        int matching;
        const char *count;
        const char *subjects;
    };
    const Case cases[] = {
        {many, 20, "", "o o o o o o o o o o"},
        {many, 20, ", 0", ""},
        {many, 20, ", -1", ""},
        {many, 20, ", NaN", ""},
        {many, 20, ", 2.9", "o o"},
        {many, 20, ", '2'", "o o o o o o o o o o"},
        {many, 3, ", 5", "o o o"},
        {{once, once, series, once, once}, 2, ", 10", "o o"},
        {{once, series, once, once, once, once}, 2, ", 4", "o s o o"},
        {{series, series, series}, 1, ", 1000000", "s s s"},
        {{series, once, lost, once}, 9, "", "s o"},
        {{once, timeless, once}, 3, "", "o"},
    };
    for (const Case &step : cases) {
        m_outlook.appointments = step.items;
        m_outlook.matchingCount = step.matching;
        const QString call =
            QStringLiteral("results = []; getAppointments(this, cb%1)").arg(QLatin1String(step.count));
        EXPECT_EQ(run(call + QLatin1String(subjects)), inQuotes(QString::fromLatin1(step.subjects)))
            << step.count << ' ' << step.matching;
    }
}

TEST_F(OutlookTest, DatesAreWrittenByPictures)
{
    m_outlook.appointments = {{QStringLiteral("a"), 40134.5625}};
    m_outlook.tasks = {{QStringLiteral("t"), 40134, 40135}, {QStringLiteral("none")}};
    const QString tooLong(100, QLatin1Char('-'));
    const QPair<QString, const char *> cases[] = {
        {QStringLiteral("getAppointments(this, cb, 5, 'd.M.yy', 'h:mm tt')"), "a 17.11.09 1:30 PM"},
        {QStringLiteral("getAppointments(this, cb, 5, 5, 'HH')"), "a 11/17/2009 13"},
        {QStringLiteral("getAppointments(this, cb, true, 'yyyy', {})"), "a 2009 13:30"},
        {QStringLiteral("getAppointments(this, cb, 5, '%1', '%1')").arg(tooLong), "a  "},
        {QStringLiteral("getTasks(this, cb, '', 9, 'd MMM')"), "t 17 Nov 18 Nov none 1 Jan 1 Jan"},
        {QStringLiteral("getTasks(this, cb)"), "t 11/17/2009 11/18/2009 none 01/01/4501 01/01/4501"},
    };
    for (const auto &[call, expected] : cases) {
        const QString script =
            QStringLiteral("results = []; %1; results[0][0].map(function (item) {"
                           "  var texts = []; for (var name in item) { texts.push(item[name]); }"
                           "  return texts.join(' '); }).join(' ')");
        EXPECT_EQ(run(script.arg(call)), inQuotes(QString::fromLatin1(expected))) << call.toStdString();
    }
}

TEST_F(OutlookTest, GetTasksAsksAsTheFilterSays)
{
    struct Case
    {
        const char *arguments;
        const char *comparison;
        const char *order;
    };
    const Case cases[] = {
        {"", "= <40134.00", "StartDate 0"},
        {", 'Overdued'", "< <40134.00", "StartDate 0"},
        {", 'overdued'", "= <40134.00", "StartDate 0"},
        {", 'NotDued', 5, '', true", ">= <40134.00", "StartDate 0"},
        {", 'NotDued', 5, '', false", ">= <40134.00", "DueDate 1"},
        {", 5, 5, 5, 0", "= <40134.00", "StartDate 0"},
    };
    m_outlook.tasks = {{QStringLiteral("t")}};
    for (const Case &step : cases) {
        run(QStringLiteral("getTasks(this, cb%1)").arg(QLatin1String(step.arguments)));
        EXPECT_EQ(m_outlook.takeCalls(),
                  QStringList({QStringLiteral("restrict [DueDate] %1 AND [Complete] = FALSE")
                                   .arg(QLatin1String(step.comparison)),
                               QStringLiteral("count"), QLatin1String("sort ") + QLatin1String(step.order)}))
            << step.arguments;
    }
    m_outlook.tasks.clear();
    EXPECT_EQ(run(QStringLiteral("results = []; getTasks(this, cb); results")), QStringLiteral("[[[]]]"));
    EXPECT_EQ(m_outlook.takeCalls().size(), 2) << "nothing to sort";
}

TEST_F(OutlookTest, GetTasksGivesOneLessThanTheCount)
{
    m_outlook.tasks.assign(150, {QStringLiteral("t")});
    const QPair<const char *, int> cases[] = {{"", 99},          {", '', 1", 0},      {", '', 0", 0},
                                              {", '', 100", 99}, {", '', 1000", 150}, {", '', '3'", 99}};
    for (const auto &[arguments, expected] : cases)
        EXPECT_EQ(run(QStringLiteral("results = []; getTasks(this, cb%1); results[0][0].length")
                          .arg(QLatin1String(arguments))),
                  QString::number(expected))
            << arguments;
    m_outlook.tasks[1].isFetchable = false;
    EXPECT_EQ(run(QStringLiteral("results = []; getTasks(this, cb); results[0][0].length")),
              QStringLiteral("1"));
}

TEST_F(OutlookTest, RecordsMayCallFunctionsOfTheStore)
{
    m_outlook.appointments = {{QStringLiteral("a"), 40200}};
    m_outlook.tasks = {{QStringLiteral("t")}};
    run(QStringLiteral("var depth = 0;"
                       "Object.prototype.__defineSetter__('subject', function () {"
                       "  if (++depth < 5) { getTasks(this, cb); getAppointments(this, cb); } });"
                       "getTasks(this, cb); getAppointments(this, cb); contactInfo(1, this, cb)"));
    EXPECT_GE(run(QStringLiteral("depth")).toInt(), 5);
}
