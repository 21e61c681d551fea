#include "support/xdesktop.h"

#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtTest/QTest>
#include <gmock/gmock.h>

namespace {

constexpr int longest = 30000; // milliseconds

std::string text(const QJsonValue &value)
{
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).toStdString();
}

/// As one text, in lines.
std::string sorted(QStringList texts)
{
    texts.sort();
    return texts.join(QLatin1Char('\n')).toStdString();
}

/// The windows of a real desktop, as another process of ours tells them; see windowlister.cpp.
class Lister
{
public:
    explicit Lister(const QProcessEnvironment &environment, const QStringList &arguments = {})
    {
        m_process.setProcessEnvironment(environment);
        m_process.start(QStringLiteral(WINDOW_LISTER), arguments);
    }

    ~Lister()
    {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }
    Q_DISABLE_COPY(Lister)

    QJsonValue ask(const QString &command, const QString &window = {})
    {
        m_process.write(command.toUtf8() + ' ' + window.toUtf8() + '\n');
        while (!m_process.canReadLine() && m_process.waitForReadyRead(longest)) { }
        return QJsonDocument::fromJson(m_process.readLine()).array().at(0);
    }

    QStringList titles()
    {
        QStringList titles;
        for (const QJsonValue &window : ask(QStringLiteral("list")).toArray())
            titles.append(window[QStringLiteral("title")].toString());
        return titles;
    }

    QString number(const QString &title)
    {
        for (const QJsonValue &window : ask(QStringLiteral("list")).toArray()) {
            if (window[QStringLiteral("title")] == title)
                return window[QStringLiteral("window")].toString();
        }
        ADD_FAILURE() << "There is no window " << title.toStdString();
        return {};
    }

    void kill() { m_process.kill(); }

    /// Ends it. Returns what it complained about.
    QString finish()
    {
        m_process.closeWriteChannel();
        EXPECT_TRUE(m_process.waitForFinished(longest));
        EXPECT_EQ(m_process.exitCode(), 0);
        return QString::fromUtf8(m_process.readAllStandardError());
    }

private:
    QProcess m_process;
};

class X11WindowsTest : public testing::Test
{
protected:
    ~X11WindowsTest() override
    {
        m_opener.kill();
        m_opener.waitForFinished();
    }

    void SetUp() override { ASSERT_EQ(m_desktop.problem(), QString()); }

    /// Opens windows: kinds and titles in turn; see windowopener.cpp. Waits until all are there.
    void open(const QStringList &windows)
    {
        m_opener.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_opener.setProcessEnvironment(m_desktop.environment());
        m_opener.start(QStringLiteral(WINDOW_OPENER), windows);
        const int listed = windows.size() / 2 - windows.count(QStringLiteral("dock"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_lister.titles().size() == listed; }, longest));
    }

    /// Waits until that has happened to one of the windows.
    void expectEvent(const QByteArray &event)
    {
        const QByteArray line = event + '\n';
        while (!m_told.contains(line) && m_opener.waitForReadyRead(longest))
            m_told += m_opener.readAllStandardOutput();
        EXPECT_TRUE(m_told.contains(line)) << line.constData() << "is not in\n" << m_told.constData();
        m_told.remove(0, m_told.indexOf(line) + line.size());
    }

    QString run(const QString &program, const QStringList &arguments) const
    {
        QProcess process;
        process.setProcessEnvironment(m_desktop.environment());
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0) << program.toStdString();
        return QString::fromUtf8(process.readAllStandardOutput());
    }

    const XDesktop m_desktop;
    QProcess m_opener;
    QByteArray m_told; ///< by the opener, after what was expected last
    Lister m_lister{m_desktop.environment()};
};

const QJsonObject noPicture{{QStringLiteral("width"), 0},
                            {QStringLiteral("height"), 0},
                            {QStringLiteral("inside"), QString()},
                            {QStringLiteral("edge"), QString()}};

} // namespace

TEST_F(X11WindowsTest, ListsWhatTheWindowManagerLists)
{
    constexpr int shortenedLength = 253;
    constexpr int plainWindows = 200;
    const QString emoji = QStringLiteral("Grüße 😀👩‍👩‍👧");
    const QString whole = QString(shortenedLength, QLatin1Char('a'));
    const QString halved = QString(shortenedLength - 1, QLatin1Char('b'));
    const QString main = QStringLiteral("漢字 かな");
    QStringList opened{QStringLiteral("dock"),      QStringLiteral("Panel"),
                       QStringLiteral("window"),    emoji,
                       QStringLiteral("minimized"), whole + QStringLiteral("and more"),
                       QStringLiteral("window"),    halved + QStringLiteral("😀"),
                       QStringLiteral("window"),    main,
                       QStringLiteral("dialog"),    QStringLiteral("Really?")};
    QStringList expected{QStringLiteral("HOLM"),   QStringLiteral("Terminal"), emoji, whole, halved, main,
                         QStringLiteral("Really?")};
    for (int i = 0; i < plainWindows; ++i) {
        opened += {QStringLiteral("window"), QStringLiteral("w%1").arg(i)};
        expected.append(opened.last());
    }
    open(opened);
    QProcess terminal;
    terminal.setProcessEnvironment(m_desktop.environment());
    terminal.start(QStringLiteral("xterm"), {QStringLiteral("-T"), QStringLiteral("Terminal")});
    Lister lister(m_desktop.environment(), {QStringLiteral("--window")});

    EXPECT_TRUE(QTest::qWaitFor([&] { return lister.titles().size() == expected.size(); }, longest));
    const QJsonArray windows = lister.ask(QStringLiteral("list")).toArray();
    QStringList listed;
    QStringList told;
    for (const QJsonValue &window : windows) {
        const QString title = window[QStringLiteral("title")].toString();
        listed.append(title);
        told.append(
            QStringLiteral("0x%1 %2")
                .arg(window[QStringLiteral("window")].toString().toULongLong(), 8, 16, QLatin1Char('0'))
                .arg(title));
        EXPECT_TRUE(window[QStringLiteral("exists")].toBool()) << title.toStdString();
        EXPECT_TRUE(window[QStringLiteral("isVisible")].toBool()) << title.toStdString();
        EXPECT_EQ(window[QStringLiteral("style")], 0) << title.toStdString();
        const QString parent = title == QLatin1String("Really?") ? lister.number(main) : QStringLiteral("0");
        EXPECT_EQ(window[QStringLiteral("parent")].toString(), parent) << title.toStdString();
        const QString program = title == QLatin1String("HOLM") ? QStringLiteral(WINDOW_LISTER)
            : title.startsWith(QLatin1String("Term"))          ? QStringLiteral("/usr/bin/xterm")
                                                               : QStringLiteral(WINDOW_OPENER);
        EXPECT_EQ(window[QStringLiteral("program")], QFileInfo(program).canonicalFilePath());
    }
    EXPECT_EQ(sorted(listed), sorted(expected));

    // Each line is "0xNUMBER DESKTOP MACHINE TITLE".
    QStringList listedByOther;
    for (const QString &line :
         run(QStringLiteral("wmctrl"), {QStringLiteral("-l")}).split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        QString title = line.section(QLatin1Char(' '), 4);
        if (title == QLatin1String("Lister"))
            title = QStringLiteral("HOLM");
        if (title.startsWith(QLatin1String("aaa")) || title.startsWith(QLatin1String("bbb")))
            title = title.startsWith(whole) ? whole : halved;
        if (title != QLatin1String("Panel"))
            listedByOther.append(line.section(QLatin1Char(' '), 0, 0) + QLatin1Char(' ') + title);
    }
    EXPECT_EQ(sorted(told), sorted(listedByOther));
    EXPECT_EQ(lister.finish(), QString());
    terminal.kill();
    terminal.waitForFinished();
}

TEST_F(X11WindowsTest, BringsWindowsToTheFrontAndClosesThem)
{
    const QStringList titles{QStringLiteral("covered"), QStringLiteral("small"), QStringLiteral("elsewhere"),
                             QStringLiteral("last")};
    open({QStringLiteral("window"), titles[0], QStringLiteral("minimized"), titles[1],
          QStringLiteral("window"), titles[2], QStringLiteral("window"), titles[3]});
    run(QStringLiteral("wmctrl"),
        {QStringLiteral("-r"), QStringLiteral("elsewhere"), QStringLiteral("-t"), QStringLiteral("2")});
    for (const QString &title : titles) {
        EXPECT_TRUE(m_lister.ask(QStringLiteral("focus"), m_lister.number(title)).toBool());
        expectEvent("active " + title.toUtf8());
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_lister.titles().value(0) == title; }, longest))
            << title.toStdString();
    }
    for (const QString &title : titles) {
        // The request has to reach the program although this process ends right after it.
        Lister lister(m_desktop.environment());
        lister.ask(QStringLiteral("close"), m_lister.number(title));
        lister.kill();
        expectEvent("closed " + title.toUtf8());
    }
    EXPECT_TRUE(m_opener.waitForFinished());
    EXPECT_EQ(m_lister.titles(), QStringList());
    EXPECT_EQ(m_lister.finish(), QString());
}

TEST_F(X11WindowsTest, SurvivesWindowsThatCloseMeanwhile)
{
    open({QStringLiteral("window"), QStringLiteral("one"), QStringLiteral("window"), QStringLiteral("two")});
    const QString lowest = m_lister.number(m_lister.titles().value(1));
    const QJsonArray told = m_lister.ask(QStringLiteral("list"), lowest).toArray();
    for (const QJsonValue &window : told) {
        const bool isThere = window[QStringLiteral("window")] != lowest;
        EXPECT_EQ(window[QStringLiteral("exists")].toBool(), isThere);
        EXPECT_EQ(window[QStringLiteral("isVisible")].toBool(), isThere);
        EXPECT_NE(window[QStringLiteral("title")].toString().isEmpty(), isThere);
        EXPECT_NE(window[QStringLiteral("program")].toString().isEmpty(), isThere);
    }
    EXPECT_EQ(told.size(), 2);
    // The second is the one still there, were its number cut to 32 bits.
    const quint64 rest = m_lister.number(m_lister.titles().value(0)).toULongLong();
    for (const QString &gone : {lowest, QString::number(rest + (quint64(1) << 32))}) {
        EXPECT_FALSE(m_lister.ask(QStringLiteral("focus"), gone).toBool());
        m_lister.ask(QStringLiteral("close"), gone);
        EXPECT_EQ(text(m_lister.ask(QStringLiteral("snapshot"), gone)), text(noPicture));
    }
    EXPECT_EQ(m_lister.titles().size(), 1);
    EXPECT_EQ(m_lister.finish(), QString());
}

TEST_F(X11WindowsTest, TakesPicturesOfWhatWindowsShow)
{
    const QString red = QStringLiteral("#ffff0000");
    const QString blue = QStringLiteral("#ff0000ff");
    const QString black = QStringLiteral("#ff000000 ");
    struct Case
    {
        const char *kind;
        int width;
        QString inside;
        QString edge;
    };
    const Case cases[] = {
        {"window", 91, red, blue},
        {"beyond", 1580, black + red, black + blue},
        {"minimized", 0, {}, {}},
        {"huge", 0, {}, {}},
    };
    QStringList windows;
    for (const Case &row : cases)
        windows += {QLatin1String(row.kind), QLatin1String(row.kind)};
    open(windows);
    QProcessEnvironment scaled = m_desktop.environment();
    scaled.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("1.5"));
    Lister scaledLister(scaled);
    for (const Case &row : cases) {
        const QString window = m_lister.number(QLatin1String(row.kind));
        if (row.width > 0) {
            m_lister.ask(QStringLiteral("focus"), window);
            expectEvent("active " + QByteArray(row.kind));
        }
        const QJsonObject expected{{QStringLiteral("width"), row.width},
                                   {QStringLiteral("height"), row.width > 0 ? 61 : 0},
                                   {QStringLiteral("inside"), row.inside},
                                   {QStringLiteral("edge"), row.edge}};
        for (Lister *lister : {&m_lister, &scaledLister}) {
            QJsonValue told;
            EXPECT_TRUE(QTest::qWaitFor(
                [&] {
                    told = lister->ask(QStringLiteral("snapshot"), window);
                    return told == expected;
                },
                longest))
                << row.kind << text(told);
        }
    }
}

TEST(X11WindowsWithoutDesktop, AreNoneAndFailQuietly)
{
    const XDesktop desktop(XDesktop::WindowManager::None);
    ASSERT_EQ(desktop.problem(), QString());
    struct Case
    {
        const char *platform;
        QStringList arguments;
    };
    const Case cases[] = {{"xcb", {}}, {"offscreen", {}}, {"xcb", {QStringLiteral("--no-application")}}};
    for (const Case &row : cases) {
        QProcessEnvironment environment = desktop.environment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QLatin1String(row.platform));
        Lister lister(environment, row.arguments);
        EXPECT_EQ(lister.titles(), QStringList());
        for (const char *window : {"0", "2130706433", "4294967296", "6425673729", "18446744073709551615"}) {
            const QString number = QLatin1String(window);
            const QJsonObject expected{
                {QStringLiteral("window"), number},    {QStringLiteral("title"), QString()},
                {QStringLiteral("exists"), false},     {QStringLiteral("isVisible"), false},
                {QStringLiteral("style"), 0},          {QStringLiteral("parent"), QStringLiteral("0")},
                {QStringLiteral("program"), QString()}};
            EXPECT_EQ(text(lister.ask(QStringLiteral("tell"), number)), text(expected));
            EXPECT_EQ(text(lister.ask(QStringLiteral("focus"), number)), text(false)) << window;
            EXPECT_EQ(text(lister.ask(QStringLiteral("close"), number)), text({})) << window;
            EXPECT_EQ(text(lister.ask(QStringLiteral("snapshot"), number)), text(noPicture)) << window;
        }
        EXPECT_EQ(lister.finish(), QString()) << row.platform;
    }
}
