#include "platform/desktop/outlook/itemsplitter.h"
#include "support/processortime.h"

#include <QtCore/QRegularExpression>
#include <gmock/gmock.h>

using platform::OutlookFolder;
using platform::splitItems;

namespace {

/// Items as "kind uid: content", with "|" for line ends, and what is told besides.
std::vector<std::string> shown(const platform::SplitFile &file)
{
    std::vector<std::string> texts;
    for (const platform::SplitItem &item : file.items) {
        const char *kind = item.folder == OutlookFolder::Calendar ? "event "
            : item.folder == OutlookFolder::Tasks                 ? "task "
                                                                  : "card ";
        QString text = QString::fromUtf8(kind + item.uid + ": " + item.content);
        text.replace(QLatin1Char('\n'), QLatin1Char('|'));
        text.replace(QRegularExpression(QStringLiteral("holm-[0-9a-f]{40}")), QStringLiteral("holm-HASH"));
        texts.push_back(text.toStdString());
    }
    if (file.leftOut > 0)
        texts.push_back("left out: " + std::to_string(file.leftOut));
    if (!file.problem.isEmpty())
        texts.push_back(file.problem.toStdString());
    return texts;
}

struct Case
{
    QByteArray content; ///< with "|" for line ends
    std::vector<std::string> items;
};

} // namespace

TEST(ItemSplitter, TakesFilesApart)
{
    const Case cases[] = {
        {"BEGIN:VCALENDAR|VERSION:2.0|METHOD:PUBLISH|X-A:b|  c|"
         "BEGIN:VEVENT|UID:a|DTSTART;TZID=\"B\":x|END:VEVENT|BEGIN:VTODO|SUMMARY:x||UID:t|END:VTODO|"
         "begin:vevent|uid:a|RECURRENCE-ID;VALUE=DATE;TZID=A:x|end:vevent|"
         "BEGIN:VJOURNAL|UID:a|END:VJOURNAL|"
         "BEGIN:VTIMEZONE|TZID:A|END:VTIMEZONE|BEGIN:VTIMEZONE|TZID:C|END:VTIMEZONE|"
         "BEGIN:VTIMEZONE|TZID:B|END:VTIMEZONE|LATE:1|END:VCALENDAR|",
         {"event a: BEGIN:VCALENDAR|VERSION:2.0|X-A:b|  c|LATE:1|"
          "BEGIN:VTIMEZONE|TZID:B|END:VTIMEZONE|BEGIN:VTIMEZONE|TZID:A|END:VTIMEZONE|"
          "BEGIN:VEVENT|UID:a|DTSTART;TZID=\"B\":x|END:VEVENT|"
          "begin:vevent|uid:a|RECURRENCE-ID;VALUE=DATE;TZID=A:x|end:vevent|END:VCALENDAR|",
          "task t: BEGIN:VCALENDAR|VERSION:2.0|X-A:b|  c|LATE:1|BEGIN:VTODO|SUMMARY:x||UID:t|END:VTODO|"
          "END:VCALENDAR|",
          "left out: 1"}},
        // folds, byte order mark, groups, the last line without an end
        {"\xEF\xBB\xBF"
         "BEGIN:VC|\tARD|VERSION:3.0|i.UID:long| er|PHOTO:AA|  AA|END:VCARD",
         {"card longer: BEGIN:VC|\tARD|VERSION:3.0|i.UID:long| er|PHOTO:AA|  AA|END:VCARD\r|"}},
        // what is further in has UIDs of its own; of two cards of one UID the last one counts
        {"BEGIN:VCARD|AGENT:|BEGIN:VCARD|UID:x|END:VCARD|UID:y|UID:z|END:VCARD|"
         "BEGIN:VCARD|UID:y|NOTE;ENCODING=QUOTED-PRINTABLE:=|END:VCARD|END:VCARD|",
         {"card y: BEGIN:VCARD|UID:y|NOTE;ENCODING=QUOTED-PRINTABLE:=|END:VCARD|END:VCARD|"}},
        // made UIDs
        {"BEGIN:VCARD|VERSION:4.0|UID: |END:VCARD|",
         {"card holm-HASH: BEGIN:VCARD|VERSION:4.0|UID:holm-HASH|END:VCARD|"}},
        {"BEGIN:VCALENDAR|BEGIN:VE| VENT|BEGIN:VALARM|UID:x|END:VALARM|END:VEVENT|END:VCALENDAR|",
         {"event holm-HASH: BEGIN:VCALENDAR|BEGIN:VE| "
          "VENT|UID:holm-HASH|BEGIN:VALARM|UID:x|END:VALARM|END:VEVENT|"
          "END:VCALENDAR|"}},
        {"BEGIN:VCALENDAR|BEGIN:VCARD|UID:a|END:VCARD|END:VCALENDAR|", {"left out: 1"}},
        {"BEGIN:VCALENDAR|END:VCALENDAR||", {}},
        // what is wrong
        {"", {"there is no calendar and no card in it"}},
        {"BEGIN:VEVENT|END:VEVENT|", {"line 1: neither a calendar nor a card begins here"}},
        {"BEGIN:VCARD|NOTE:a| b|END:VCARD|x|", {"line 5: neither a calendar nor a card begins here"}},
        {"END:VCARD|", {"line 1: neither a calendar nor a card begins here"}},
        {"BEGIN:VCALENDAR|BEGIN:VEVENT|UID:a|END:VCALENDAR|", {"line 4: something else should end here"}},
        {"BEGIN:VCARD|UID:a|", {"the file ends in the middle of something"}},
        {QByteArray("a\0b", 3), {"it is no text file"}},
        {"BEGIN:VCARD|" + QByteArray("BEGIN:X|").repeated(100), {"line 21: too many levels"}},
    };
    for (const Case &each : cases) {
        QByteArray content = each.content;
        EXPECT_EQ(shown(splitItems(content.replace('|', '\n'))), each.items) << each.content.toStdString();
    }
}

TEST(ItemSplitter, MergesChangesIntoTheirSeries)
{
    const auto item = [](QByteArray lines) {
        return splitItems("BEGIN:VCALENDAR\n" + lines.replace('|', '\n') + "END:VCALENDAR\n").items.at(0);
    };
    const QByteArray zones = "BEGIN:VTIMEZONE|TZID:A|X:%|END:VTIMEZONE|BEGIN:VTIMEZONE|TZID:B|END:VTIMEZONE|";
    const QByteArray master = "BEGIN:VEVENT|UID:u|DTSTART;TZID=A:x|END:VEVENT|";
    const auto change = [](const QByteArray &lines) {
        return "BEGIN:VEVENT|UID:u|RECURRENCE-ID" + lines + "|END:VEVENT|";
    };
    const platform::SplitItem series =
        item("X-A:b|" + QByteArray(zones).replace('%', '1') + change(":1|X:old") + master + change(":2")
             + change(";RA|\tNGE=THISANDFUTURE:1"));
    const platform::SplitItem changes = item("X-B:b|" + QByteArray(zones).replace('%', '2')
                                             + change(";X=\":\"|  :1|X;TZID=B:new") + change(";TZID=A:3"));
    EXPECT_TRUE(series.hasSeries);
    EXPECT_FALSE(changes.hasSeries);
    const QByteArray merged = "event u: BEGIN:VCALENDAR|X-A:b|" + QByteArray(zones).replace('%', '1') + master
        + change(":2") + change(";RA|\tNGE=THISANDFUTURE:1") + change(";X=\":\"|  :1|X;TZID=B:new")
        + change(";TZID=A:3") + "END:VCALENDAR|";
    EXPECT_THAT(shown(mergeChanges(series, changes)), testing::ElementsAre(merged.toStdString()));
}

TEST(ItemSplitter, EndsWithLargeFiles)
{
    constexpr int megabyte = 1 << 20;
    const QByteArray event = "BEGIN:VEVENT\nDTSTART;TZID=Z:1\nUID:%\nEND:VEVENT\n";
    QByteArray events;
    for (int i = 0; i < 1000; ++i)
        events += QByteArray(event).replace("%", QByteArray::number(i));
    const QByteArray zone = "BEGIN:VTIMEZONE\nTZID:Z\nX:" + QByteArray(megabyte, 'x') + "\nEND:VTIMEZONE\n";
    const Case cases[] = {
        {"BEGIN:VCALENDAR\n" + zone + events + "END:VCALENDAR\n", {"its items would take more than 512 MB"}},
        {QByteArray("BEGIN:VCARD\n").repeated(megabyte), {"line 21: too many levels"}},
        {"BEGIN:VCARD\nX:" + QByteArray("\n x").repeated(megabyte),
         {"the file ends in the middle of something"}},
        {"BEGIN:VCARD\n" + QByteArray(";\":").repeated(megabyte),
         {"the file ends in the middle of something"}},
    };
    const ProcessorTime time;
    for (const Case &each : cases)
        EXPECT_EQ(shown(splitItems(each.content)), each.items);
    EXPECT_LT(time.seconds(), 20);
}
