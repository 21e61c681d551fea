#include "support/providertest.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QTranslator>

namespace {

QString readSource(const char *path)
{
    QFile file(QStringLiteral(SOURCE_DIR "/") + QLatin1String(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    return QString::fromUtf8(file.readAll());
}

QStringList allMatches(const QString &pattern, const QString &text)
{
    QStringList matches;
    auto match = QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text);
    while (match.hasNext())
        matches.append(match.next().captured(1));
    matches.sort();
    return matches;
}

class GermanTexts : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        return QLatin1String(context) == QLatin1String("KestCommandProvider")
            ? QLatin1String("de:") + QLatin1String(source)
            : QString();
    }
};

} // namespace

TEST_F(ProviderTest, PublishesFortyFunctionsInTheirPlaces)
{
    // "!" marks the interactive ones.
    const QStringList expected =
        QStringLiteral(
            "getFiles getDirs launch readReg writeReg setConfig getConfig deleteConfig !browseFiles "
            "!textInput !numInput !listInput deleteFile deleteDir s2pCommand s2pStatus getRadioStatus "
            "setRadioStatus !extractIcon !regEventUnSuscribe !regEventSuscribe !contactImage "
            "!selectContact contactInfo !poomEventSuscribe !poomEventUnSuscribe getAppointments "
            "getTasks !getUrl !getRSSFeed !getWeather getSoundProfile setSoundProfile "
            "!openProgramsFolder !cacheProgramsFolder setBluetoothDiscoverable focusWindow "
            "!runningProcesses closeWindow !clearRunningProcessesResources")
            .split(QLatin1Char(' '));
    ASSERT_EQ(m_application.registered.size(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        const bool interactive = expected.at(i).startsWith(QLatin1Char('!'));
        const QString name = expected.at(i).mid(interactive ? 1 : 0);
        EXPECT_EQ(m_application.registered.at(i),
                  QStringLiteral("%1 %2 %3 0").arg(i).arg(name).arg(interactive));
    }
    EXPECT_EQ(run(QStringLiteral("typeof clearProgramsFolderCache")), QStringLiteral("\"undefined\""));
}

TEST_F(ProviderTest, DocumentsAndTypesNameThePublishedFunctions)
{
    QStringList published;
    for (const QString &entry : qAsConst(m_application.registered))
        published.append(entry.section(QLatin1Char(' '), 1, 1));
    published.sort();

    const QString documents = readSource("docs/functions.md");
    EXPECT_EQ(allMatches(QStringLiteral("^### (\\w+)$"), documents), published);

    QStringList declared =
        allMatches(QStringLiteral("^declare function (\\w+)"), readSource("docs/kestcmd.d.ts"));
    declared.removeDuplicates(); // overloads
    for (const char *own :
         {"print", "setTimeout", "setInterval", "clearTimeout", "clearInterval", "include", "quit"})
        EXPECT_TRUE(declared.removeOne(QLatin1String(own))) << own;
    EXPECT_EQ(declared, published);
}

TEST_F(ProviderTest, BadArgumentsAreReportedOnceAndDoNothing)
{
    makeFile(QStringLiteral("app/keep"));
    const QList<QPair<const char *, const char *>> calls = {
        {"getFiles", "'.', '*', cb"},
        {"getFiles", "'.', '*', this, cb, 1"},
        {"getFiles", "'.', 5, this, cb"},
        {"getFiles", "'.', '*', this, {}"},
        {"getDirs", "'.', this"},
        {"getDirs", "5, this, cb"},
        {"launch", ""},
        {"launch", "5"},
        {"launch", "'a.exe', 5"},
        {"launch", "'a.exe', null, 'x'"},
        {"deleteFile", ""},
        {"deleteFile", "'keep', 'keep'"},
        {"deleteFile", "['keep']"},
        {"deleteDir", "'keep', true, 1"},
        {"deleteDir", "undefined"},
        {"setConfig", "'s', 'k'"},
        {"setConfig", "'s', 'k', 1, 'l'"},
        {"setConfig", "5, 'k', 1"},
        {"getConfig", "'s', this, cb"},
        {"getConfig", "'s', 1, cb, 'k'"},
        {"getConfig", "'s', this, {}, 'k'"},
        {"deleteConfig", ""},
        {"deleteConfig", "'s', 'k', 'x'"},
        {"deleteConfig", "'s', 5"},
        {"readReg", "'a', this, 1"},
        {"writeReg", "'a', true"},
        {"regEventSuscribe", "{}, cb, 'a'"},
        {"regEventUnSuscribe", "{}, 'a'"},
        {"getSoundProfile", "{}, cb"},
        {"getSoundProfile", "widget, {}"},
        {"getSoundProfile", "widget, cb, 1"},
        {"setSoundProfile", ""},
        {"setSoundProfile", "2"},
        {"setSoundProfile", "'off', 1"},
        {"getRadioStatus", "1, this, cb"},
        {"getRadioStatus", "'wifi', 5, cb"},
        {"getRadioStatus", "'wifi', this"},
        {"setRadioStatus", "'phone', 'yes'"},
        {"setRadioStatus", "'phone', true, 1"},
        {"s2pCommand", ""},
        {"s2pCommand", "5"},
        {"s2pCommand", "'play', 1"},
        {"s2pStatus", "this"},
        {"s2pStatus", "5, cb"},
        {"s2pStatus", "this, {}"},
        {"s2pStatus", "this, cb, 1"},
        {"browseFiles", "this"},
        {"browseFiles", "this, cb, '/', '', true, true, 1"},
        {"browseFiles", "this, {}"},
        {"textInput", "'l', 't', this"},
        {"textInput", "'l', 't', this, cb, 1"},
        {"textInput", "'l', 5, this, cb"},
        {"textInput", "'l', 't', 'x', cb"},
        {"numInput", "this, cb, 'l'"},
        {"numInput", "this, cb, 'l', 1, 2, 3, 4, 5, 6"},
        {"numInput", "this, cb, 'l', '1'"},
        {"numInput", "this, cb, 5, 1"},
        {"listInput", "this, cb, 'l', 0"},
        {"listInput", "this, cb, 'l', 0, 'section'"},
        {"listInput", "this, cb, 'l', 0, {}"},
        {"listInput", "this, cb, 'l', '0', ['a']"},
        {"listInput", "this, cb, 5, 0, 'section', 'key'"},
        {"listInput", "this, cb, 'l', 0, 'section', 'key', ';', false, true, false, 1"},
        {"selectContact", "this"},
        {"selectContact", "5, cb"},
        {"selectContact", "this, cb, 1"},
        {"contactImage", "this, cb, 1, 'a.png'"},
        {"contactImage", "this, cb, 1, 'a.png', false, 5"},
        {"contactImage", "this, cb, '1', 'a.png', false"},
        {"contactImage", "this, cb, 1, 'a.png', 0"},
        {"contactImage", "this, cb, 1, 'a.png', false, 5, 5, 5"},
        {"contactInfo", "1, this"},
        {"contactInfo", "'1', this, cb"},
        {"contactInfo", "1, this, cb, 1"},
        {"poomEventSuscribe", "{}, cb, 'Tasks'"},
        {"poomEventSuscribe", "widget, {}, 'Tasks'"},
        {"poomEventSuscribe", "widget, cb, 5"},
        {"poomEventSuscribe", "widget, cb, 'Tasks', 1"},
        {"poomEventUnSuscribe", "{}, 'Tasks'"},
        {"poomEventUnSuscribe", "widget"},
        {"poomEventUnSuscribe", "widget, cb, 'Tasks'"},
        {"getAppointments", "this"},
        {"getAppointments", "5, cb"},
        {"getAppointments", "this, {}"},
        {"getAppointments", "this, cb, 1, '', '', 1"},
        {"getTasks", "this"},
        {"getTasks", "this, {}"},
        {"getTasks", "this, cb, '', 1, '', true, 1"},
        {"extractIcon", "this, cb, 'a.exe', 'a.png', false"},
        {"extractIcon", "this, cb, 'a.exe', 'a.png', false, true, 32"},
        {"extractIcon", "this, cb, 'a.exe', 'a.png', false, true, 32, 32, 1"},
        {"extractIcon", "this, cb, 'a.exe', 'a.png', false, 1"},
        {"extractIcon", "this, cb, 'a.exe', null, false, true"},
        {"openProgramsFolder", "5"},
        {"openProgramsFolder", "'', ''"},
        {"cacheProgramsFolder", "5"},
        {"cacheProgramsFolder", "'', ''"},
        {"focusWindow", ""},
        {"focusWindow", "5"},
        {"focusWindow", "{hWnd: 1}, {hWnd: 1}"},
        {"closeWindow", "5"},
        {"closeWindow", "{hWnd: 1}, 1"},
        {"runningProcesses", "'p', null, this"},
        {"runningProcesses", "5, null, this, cb"},
        {"runningProcesses", "'p', undefined, this, cb"},
        {"runningProcesses", "'p', null, 5, cb"},
        {"runningProcesses", "'p', null, this, cb, [], 1"},
        {"clearRunningProcessesResources", "{}"},
        {"clearRunningProcessesResources", "[], []"},
    };
    // Functions of a kind report by the name of one.
    const QHash<QString, QString> reportedAs = {
        {QStringLiteral("cacheProgramsFolder"), QStringLiteral("openProgramsFolder")},
        {QStringLiteral("closeWindow"), QStringLiteral("focusWindow")}};
    for (const auto &[function, arguments] : calls) {
        const QString call = QStringLiteral("%1(%2)").arg(QLatin1String(function), QLatin1String(arguments));
        EXPECT_EQ(run(call + QLatin1String("; results")), QStringLiteral("[]")) << call.toStdString();
        const QString name = QLatin1String(function);
        EXPECT_EQ(
            takeMessages(),
            QStringList(
                QStringLiteral("[Error] %1: Invalid function arguments.").arg(reportedAs.value(name, name))))
            << call.toStdString();
    }
    EXPECT_TRUE(m_shell->executions.empty());
    EXPECT_TRUE(exists(QStringLiteral("app/keep")));
    EXPECT_EQ(run(QStringLiteral("getConfig('s', this, cb, 'k'); results")), QStringLiteral("[[[null]]]"));
}

TEST_F(ProviderTest, OnlyTheMessageIsTranslated)
{
    GermanTexts german;
    QCoreApplication::installTranslator(&german);
    run(QStringLiteral("getFiles(); deleteFile('/etc/passwd')"));
    QCoreApplication::removeTranslator(&german);
    EXPECT_EQ(takeMessages(),
              QStringList(
                  {QStringLiteral("[Error] getFiles: de:Invalid function arguments."),
                   QStringLiteral("[de:Error] de:Cannot delete a path outside the application directory.")}));
}
