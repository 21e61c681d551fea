#include "support/holmprocess.h"

#include <QtCore/QDate>
#include <QtCore/QDir>
#include <gmock/gmock.h>

namespace {

/// An iCalendar file of hourly appointments on a day to come.
QByteArray calendarOf(int count, const QDate &day)
{
    QByteArray text = "BEGIN:VCALENDAR\nVERSION:2.0\n";
    for (int i = 0; i < count; ++i) {
        const QByteArray number = QByteArray::number(i).rightJustified(3, '0');
        text += "BEGIN:VEVENT\nUID:many-" + number + "\nSUMMARY:No. " + number + "\nDTSTART:"
            + day.toString(Qt::ISODate).remove(QLatin1Char('-')).toLatin1() + "T120000\nEND:VEVENT\n";
    }
    return text + "END:VCALENDAR\n";
}

/// What the process puts out, up to the line.
QString outputUntil(QProcess &process, const QString &line)
{
    QString output;
    while (!output.contains(line + QLatin1Char('\n')) && process.waitForReadyRead())
        output += QString::fromUtf8(process.readAllStandardOutput());
    return output;
}

} // namespace

TEST(HolmPim, ScriptsFollowWhatOtherProgramsDo)
{
    const HolmProcess holm;
    holm.write(QStringLiteral("device/config.ini"), ""); // not new, so without samples
    holm.write(QStringLiteral("widget/widget.ui"),
               R"(<ui version="4.0"><widget class="QLabel" name="l"/></ui>)");
    holm.write(QStringLiteral("widget/widget.js"), R"(
        var told = [];
        poomEventSuscribe(widget, function (kind, oid) {
          told.push(oid);
          if (told.length !== 500) return;
          var sorted = told.slice().sort(function (a, b) { return a - b; });
          print(told.join() === sorted.join() ? "in order" : told.join());
          getAppointments(this, function (found) {
            print(found[0].subject, found[0].startDate, found[499].subject, found.length);
          }, 1000, "yyyy");
        }, "Appointments");
        poomEventSuscribe(widget, function () { print("a contact"); quit(0); }, "Contacts");
        print("ready");
    )");
    const auto process = holm.prepare({QStringLiteral("--unattended"), QStringLiteral("widget")});
    process->start();
    outputUntil(*process, QStringLiteral("ready"));

    const QDate day = QDate::currentDate().addDays(10);
    holm.write(QStringLiteral("many.ics"), calendarOf(500, day));
    EXPECT_EQ(
        holm.command({QStringLiteral("pim"), QStringLiteral("import"), QStringLiteral("many.ics")}).status,
        0);
    const QString last = QStringLiteral("No. 000 %1 12:00 No. 499 500").arg(day.year());
    EXPECT_EQ(outputUntil(*process, last).toStdString(), "in order\n" + last.toStdString() + '\n');

    // As an editor saves.
    holm.write(QStringLiteral("device/contacts/.new"), "BEGIN:VCARD\nVERSION:3.0\nFN:Ann\nEND:VCARD\n");
    EXPECT_TRUE(QFile::rename(holm.path(QStringLiteral("device/contacts/.new")),
                              holm.path(QStringLiteral("device/contacts/ann.vcf"))));
    EXPECT_TRUE(process->waitForFinished());
    EXPECT_EQ(process->readAllStandardOutput(), "a contact\n");
    EXPECT_EQ(process->readAllStandardError(), "");
}

TEST(HolmPim, WithoutFoldersThereIsNoConnection)
{
    const HolmProcess holm;
    holm.write(QStringLiteral("device/tasks"), "a file in the way");
    holm.write(QStringLiteral("w.js"), "getTasks(5); contactInfo(1, this, print); print('on');");
    const HolmResult result = holm.run({QStringLiteral("--unattended"), QStringLiteral("w.js")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output.toStdString(), "on\n");
    EXPECT_THAT(result.errors.toStdString(), testing::HasSubstr("device/tasks"));
    EXPECT_THAT(result.errors.toStdString(),
                testing::EndsWith("[Error] getTasks: Could not access Pocket Outlook.\n"
                                  "[Error] contactInfo: Could not access Pocket Outlook.\n"));
}

// The dialog holds the connection when the run ends.
TEST(HolmPim, AnOpenContactListDoesNotKeepARunFromEnding)
{
    const HolmProcess holm;
    holm.write(QStringLiteral("w.js"), "selectContact(this, print);");
    EXPECT_EQ(holm.run({QStringLiteral("--timeout"), QStringLiteral("1"), QStringLiteral("w.js")}).status,
              124);
}
