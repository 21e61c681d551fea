#include "support/holmsteps.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <cstdio>
#include <iterator>

using testing::HasSubstr;
using testing::Not;

namespace {

QByteArray content(const HolmProcess &holm, const QByteArray &name)
{
    QFile file(holm.path(QString::fromUtf8(name)));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.constData();
    return file.readAll();
}

QByteArray event(const QByteArray &lines)
{
    return "BEGIN:VEVENT\nDTSTAMP:20260101T000000Z\nDTSTART:20260105T090000\n" + lines + "END:VEVENT\n";
}

QByteArray calendar(const QByteArray &components)
{
    return "BEGIN:VCALENDAR\nVERSION:2.0\nPRODID:x\nMETHOD:PUBLISH\n" + components + "END:VCALENDAR\n";
}

QByteArray card(const QByteArray &lines)
{
    return "BEGIN:VCARD\nVERSION:3.0\n" + lines + "END:VCARD\n";
}

} // namespace

TEST(PimCommand, TakesInItemsAndReplacesThem)
{
    const HolmProcess holm;
    const QByteArray series = event("UID:a/b\nRRULE:FREQ=DAILY;COUNT=3\nSUMMARY:Old\n")
        + event("UID:a/b\nRECURRENCE-ID:20260106T090000\nSUMMARY:Moved\n");
    holm.write(QStringLiteral("all.ics"),
               calendar(series + event("UID:single@x\n")
                        + "BEGIN:VTODO\nUID:t\nSUMMARY:T\nEND:VTODO\nBEGIN:VJOURNAL\nUID:j\nEND:VJOURNAL\n"));
    holm.write(QStringLiteral("cards.vcf"),
               card("UID:c\nFN:C\nN:;C;;;\n") + card("FN:Nobody knows my UID\nN:;No;;;\n"));
    holm.write(QStringLiteral("bad.ics"), calendar(event("UID:bad\n")) + "BEGIN:VCARD\n");
    holm.write(QStringLiteral("senseless.ics"),
               calendar(event("UID:good\n") + "BEGIN:VEVENT\nUID:no\x1b start\nEND:VEVENT\n"));
    expectSteps(holm,
                {{"pim|import|all.ics|cards.vcf", 0,
                  "Imported 2 appointments, 1 task and 2 contacts; left out 1 item of other kinds.\n"}});
    const QDir device(holm.path(QStringLiteral("device")));
    const auto count = [&device](const char *folder) {
        return QDir(device.filePath(QLatin1String(folder)))
            .entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot)
            .size();
    };
    const int events = count("calendar");
    const int contacts = count("contacts");
    EXPECT_THAT(content(holm, "device/calendar/single@x.ics").toStdString(), Not(HasSubstr("METHOD")));

    // Under whatever name an item's file goes, that one is replaced.
    ASSERT_TRUE(QFile::rename(holm.path(QStringLiteral("device/tasks/t.ics")),
                              holm.path(QStringLiteral("device/tasks/mine.ics"))));
    holm.write(QStringLiteral("device/tasks/u.ics"), calendar("BEGIN:VTODO\nUID:v\nEND:VTODO\n"));
    holm.write(QStringLiteral("new.ics"),
               calendar("BEGIN:VTODO\nUID:t\nSUMMARY:New\nEND:VTODO\nBEGIN:VTODO\nUID:u\nEND:VTODO\n"));
    expectSteps(holm,
                {{"pim|import|bad.ics|all.ics|new.ics|cards.vcf|none.ics|senseless.ics", 1,
                  "Imported 2 appointments, 3 tasks and 2 contacts; left out 1 item of other kinds.\n",
                  "holm: bad.ics: the file ends in the middle of something\n"
                  "holm: none.ics: the file cannot be read: No such file or directory\n"
                  "holm: senseless.ics: item \"no\\u001b start\": the event no\\u001b start does not say "
                  "when it starts\n"}});
    EXPECT_EQ(count("calendar"), events);
    EXPECT_EQ(count("contacts"), contacts);
    EXPECT_THAT(content(holm, "device/tasks/mine.ics").toStdString(), HasSubstr("SUMMARY:New"));
    EXPECT_THAT(content(holm, "device/tasks/u.ics").toStdString(), HasSubstr("UID:v"));
    EXPECT_THAT(content(holm, "device/tasks/u-2.ics").toStdString(), HasSubstr("UID:u"));
}

TEST(PimCommand, ReplacesNothingButTheItemItself)
{
    const HolmProcess holm;
    const auto importing = [&holm](const QByteArray &components) {
        holm.write(QStringLiteral("new.ics"), calendar(components));
        expectSteps(holm, {{"pim|import|new.ics", 0, "Imported 1 appointment.\n"}});
    };
    const QByteArray first = event("UID:s\nRECURRENCE-ID:20260106T090000\nSUMMARY:First\n");
    const QByteArray second = event("UID:s\nRECURRENCE-ID:20260107T090000\nSUMMARY:Second\n");
    importing(event("UID:s\nRRULE:FREQ=DAILY\nSUMMARY:All\n"));
    for (const QByteArray &change : {first, second, QByteArray(second).replace("Second", "Later")})
        importing(change);
    EXPECT_THAT(content(holm, "device/calendar/s.ics").toStdString(),
                AllOf(HasSubstr("RRULE"), HasSubstr("First"), HasSubstr("Later"), Not(HasSubstr("Second"))));

    // Only what widgets see is an item; whatever else there is stays.
    const QByteArray stored = calendar(event("UID:x\n"));
    const QByteArray kept[] = {"X.ICS", ".x.ics", "x.ics", "x-2.ics"};
    const QByteArray contents[] = {stored, stored, "BEGIN:", calendar("BEGIN:VTODO\nUID:x\nEND:VTODO\n")};
    for (std::size_t i = 0; i < std::size(kept); ++i)
        holm.write(QStringLiteral("device/calendar/") + QString::fromLatin1(kept[i]), contents[i]);
    importing(event("UID:x\n"));
    for (std::size_t i = 0; i < std::size(kept); ++i)
        EXPECT_EQ(content(holm, "device/calendar/" + kept[i]), contents[i]);
    EXPECT_THAT(content(holm, "device/calendar/x-3.ics").toStdString(), HasSubstr("UID:x"));

    const QDir folder(holm.path(QStringLiteral("device/calendar")));
    importing(event("UID:-rf\n"));
    EXPECT_THAT(folder.entryList({QStringLiteral("-*")}), testing::IsEmpty());
    const QByteArray path = QFile::encodeName(folder.filePath(QStringLiteral("x-3.ics")));
    const QByteArray foreign = QByteArray(path).replace("x-3", "\xff");
    ASSERT_EQ(std::rename(path.constData(), foreign.constData()), 0);
    holm.write(QStringLiteral("new.ics"), stored);
    expectSteps(holm, {{"pim|import|new.ics", 1, "Imported nothing.\n", "holm: new.ics: item \"x\": "}});
    EXPECT_EQ(std::remove(foreign.constData()), 0); // which Qt cannot
}

TEST(PimCommand, TakesInStandardInput)
{
    const HolmProcess holm;
    const auto process =
        holm.prepareCommand({QStringLiteral("pim"), QStringLiteral("import"), QStringLiteral("-")});
    process->start();
    process->write(calendar(event("UID:a\n")));
    process->closeWriteChannel();
    ASSERT_TRUE(process->waitForFinished());
    EXPECT_EQ(process->readAllStandardOutput().toStdString(), "Imported 1 appointment.\n");
}

TEST(PimCommand, TellsWhatCannotBeDone)
{
    const HolmProcess holm;
    const QByteArray both = calendar(event("UID:a\n") + event("UID:b\n"));
    holm.write(QStringLiteral("a.ics"), calendar(event("UID:a\n")));
    expectSteps(holm,
                {{"pim", 2, "", "holm: no action given; see holm pim --help\n"},
                 {"pim|export|a.ics", 2, "", "holm: there is no action \"export\"; see holm pim --help\n"},
                 {"pim|import", 2, "", "holm: import takes FILE...; see holm pim --help\n"},
                 {"pim|import|device", 1, "Imported nothing.\n", "holm: device: the file cannot be read: "},
                 {"pim|import|a\x1b\n", 1, "Imported nothing.\n", "holm: a\\u001b\\n: the file "}});
    holm.write(QStringLiteral("device/calendar/both.ics"), both);
    const std::string shared =
        "holm: a.ics: item \"a\": " + holm.path(QStringLiteral("device/calendar/both.ics")).toStdString()
        + " holds this item and others, too\n";
    expectSteps(holm, {{"pim|import|a.ics", 1, "Imported nothing.\n", shared.c_str()}});
    EXPECT_EQ(content(holm, "device/calendar/both.ics"), both);
}
