#include "platform/desktop/outlook/sampleoutlook.h"

#include "platform/desktop/outlook/sampleportrait.h"

#include <optional>

namespace platform {

namespace {

/// In contents, "{N}" stands for the day N days from today, "{wN}" for the day N days from this week's
/// Monday, and "{bN}" for the first one in a birthday's year.
struct Entry
{
    const char *path;
    const char *content;
};

struct Card
{
    const char *path;
    const char *content;
    std::optional<PortraitColours> photo = std::nullopt;
};

constexpr int birthYear = 1984; // had a 29 February

const Entry entries[] = {
    {"calendar/stand-up.ics",
     "BEGIN:VEVENT\n"
     "UID:sample-stand-up\n"
     "DTSTART:{w0}T091500\n"
     "DTEND:{w0}T093000\n"
     "RRULE:FREQ=WEEKLY;BYDAY=MO,TU,WE,TH,FR\n"
     "SUMMARY:Stand-up\n"
     "LOCATION:Map room\n"
     "END:VEVENT\n"},
    {"calendar/lunch.ics",
     "BEGIN:VEVENT\n"
     "UID:sample-lunch\n"
     "DTSTART:{0}T123000\n"
     "DTEND:{0}T133000\n"
     "SUMMARY:Lunch with Ann\n"
     "LOCATION:Harbour Café\n"
     "END:VEVENT\n"},
    {"calendar/bicycle.ics",
     "BEGIN:VEVENT\n"
     "UID:sample-bicycle\n"
     "DTSTART:{0}T180000\n"
     "DTEND:{0}T183000\n"
     "SUMMARY:Collect the bicycle\n"
     "END:VEVENT\n"},
    {"calendar/dentist.ics",
     "BEGIN:VEVENT\n"
     "UID:sample-dentist\n"
     "DTSTART:{1}T150000\n"
     "DTEND:{1}T154500\n"
     "SUMMARY:Dentist\n"
     "LOCATION:12 Mill Lane\n"
     "DESCRIPTION:Dr. Nair. Bring the insurance card.\n"
     "END:VEVENT\n"},
    {"calendar/train.ics",
     "BEGIN:VEVENT\n"
     "UID:sample-train\n"
     "DTSTART:{2}T081200\n"
     "DTEND:{2}T103500\n"
     "SUMMARY:Train to Northhaven\n"
     "LOCATION:Platform 3\n"
     "END:VEVENT\n"},
    {"calendar/choir.ics",
     "BEGIN:VEVENT\n"
     "UID:sample-choir\n"
     "DTSTART:{w3}T193000\n"
     "DTEND:{w3}T210000\n"
     "RRULE:FREQ=WEEKLY\n"
     "SUMMARY:Choir\n"
     "LOCATION:Old school hall\n"
     "END:VEVENT\n"},
    {"calendar/street-fair.ics",
     "BEGIN:VEVENT\n"
     "UID:sample-street-fair\n"
     "DTSTART;VALUE=DATE:{4}\n"
     "DTEND;VALUE=DATE:{5}\n"
     "SUMMARY:Street fair\n"
     "TRANSP:TRANSPARENT\n"
     "END:VEVENT\n"},
    {"calendar/birthday-tom.ics",
     "BEGIN:VEVENT\n"
     "UID:sample-birthday-tom\n"
     "DTSTART;VALUE=DATE:{b3}\n"
     "RRULE:FREQ=YEARLY\n"
     "SUMMARY:Tom's birthday\n"
     "TRANSP:TRANSPARENT\n"
     "END:VEVENT\n"},

    {"tasks/library.ics",
     "BEGIN:VTODO\n"
     "UID:sample-library\n"
     "DTSTART;VALUE=DATE:{-14}\n"
     "DUE;VALUE=DATE:{-5}\n"
     "SUMMARY:Return the library books\n"
     "END:VTODO\n"},
    {"tasks/electricity.ics",
     "BEGIN:VTODO\n"
     "UID:sample-electricity\n"
     "DTSTART;VALUE=DATE:{-8}\n"
     "DUE;VALUE=DATE:{-1}\n"
     "PRIORITY:1\n"
     "SUMMARY:Pay the electricity bill\n"
     "END:VTODO\n"},
    {"tasks/plants.ics",
     "BEGIN:VTODO\n"
     "UID:sample-plants\n"
     "DTSTART;VALUE=DATE:{0}\n"
     "DUE;VALUE=DATE:{0}\n"
     "SUMMARY:Water the plants\n"
     "END:VTODO\n"},
    {"tasks/tickets.ics",
     "BEGIN:VTODO\n"
     "UID:sample-tickets\n"
     "DTSTART;VALUE=DATE:{0}\n"
     "DUE;VALUE=DATE:{3}\n"
     "SUMMARY:Book the concert tickets\n"
     "DESCRIPTION:Four, Tom and Priya come along.\n"
     "END:VTODO\n"},
    {"tasks/report.ics",
     "BEGIN:VTODO\n"
     "UID:sample-report\n"
     "DTSTART;VALUE=DATE:{3}\n"
     "DUE;VALUE=DATE:{10}\n"
     "SUMMARY:Write the report on Northhaven\n"
     "END:VTODO\n"},
    {"tasks/juggling.ics",
     "BEGIN:VTODO\n"
     "UID:sample-juggling\n"
     "SUMMARY:Learn to juggle\n"
     "END:VTODO\n"},
    {"tasks/passport.ics",
     "BEGIN:VTODO\n"
     "UID:sample-passport\n"
     "DUE;VALUE=DATE:{-2}\n"
     "COMPLETED:{-3}T100000Z\n"
     "PERCENT-COMPLETE:100\n"
     "STATUS:COMPLETED\n"
     "SUMMARY:Renew the passport\n"
     "END:VTODO\n"},
};

const Card cards[] = {
    {"contacts/ann-linden.vcf",
     "UID:sample-ann-linden\n"
     "FN:Ann Linden\n"
     "N:Linden;Ann;Marie;;\n"
     "ORG:Harbour Maps;Coasts\n"
     "TITLE:Cartographer\n"
     "TEL;TYPE=WORK,VOICE:555-0110\n"
     "TEL;TYPE=WORK,FAX:555-0111\n"
     "TEL;TYPE=CELL:555-0112\n"
     "TEL;TYPE=HOME,VOICE:555-0113\n"
     "EMAIL;TYPE=INTERNET,PREF:ann.linden@example.com\n"
     "EMAIL;TYPE=INTERNET:ann@example.org\n"
     "ADR;TYPE=WORK:;;4 Quay Street;Northhaven;NH;01234;Norland\n"
     "ADR;TYPE=HOME:;;27 Lime Walk;Northhaven;NH;01236;Norland\n"
     "URL:https://maps.example.com/\n"
     "BDAY:1979-05-16\n"
     "X-KADDRESSBOOK-X-Office:Room 12\n"
     "X-KADDRESSBOOK-X-AssistantsName:Lee Park\n"
     "CATEGORIES:Work,Friends\n"
     "NOTE:Knows every lighthouse on the coast.\n",
     PortraitColours{0xf2c14e, 0x2a6f97, 0xf1c7a5, 0x7a3b1d, true}},
    {"contacts/tom-okafor.vcf",
     "UID:sample-tom-okafor\n"
     "FN:Tom Okafor\n"
     "N:Okafor;Tom;;;\n"
     "TEL;TYPE=CELL:555-0120\n"
     "TEL;TYPE=HOME,VOICE:555-0121\n"
     "EMAIL;TYPE=INTERNET:tom@example.org\n"
     "ADR;TYPE=HOME:;;3 Orchard Row;Milbury;MB;04410;Norland\n"
     "BDAY:{b3}\n"
     "CATEGORIES:Friends\n"
     "NOTE:Sings bass in the choir.\n",
     PortraitColours{0x7fb7be, 0xd9594c, 0x8d5a3b, 0x241a17, false}},
    {"contacts/priya-nair.vcf",
     "UID:sample-priya-nair\n"
     "FN:Dr. Priya Nair\n"
     "N:Nair;Priya;;Dr.;\n"
     "ORG:Mill Lane Dental Practice\n"
     "TITLE:Dentist\n"
     "TEL;TYPE=WORK,VOICE:555-0130\n"
     "TEL;TYPE=PAGER:555-0131\n"
     "EMAIL;TYPE=INTERNET:reception@example.com\n"
     "ADR;TYPE=WORK:;;12 Mill Lane;Milbury;MB;04412;Norland\n"
     "URL:https://dentist.example.com/\n"
     "CATEGORIES:Health\n",
     PortraitColours{0xb8c480, 0xf4f1ea, 0xc68b59, 0x2b1b17, true}},
    {"contacts/maggie-fairweather.vcf",
     "UID:sample-maggie-fairweather\n"
     "FN:Maggie Fairweather\n"
     "N:Fairweather;Maggie;;;\n"
     "TEL;TYPE=HOME,VOICE:555-0140\n"
     "TEL;TYPE=CELL:555-0141\n"
     "EMAIL;TYPE=INTERNET:maggie.fairweather@example.org\n"
     "ADR;TYPE=HOME:;;8 Hill View;Upper Sedge;SG;07712;Norland\n"
     "BDAY:1951-10-02\n"
     "X-ANNIVERSARY:1976-06-19\n"
     "X-KADDRESSBOOK-X-SpousesName:George Fairweather\n"
     "CATEGORIES:Family\n"
     "NOTE:Call on Sundays.\\nGrows the best tomatoes.\n",
     PortraitColours{0xd8a7b1, 0x5b5f97, 0xf3d3bd, 0xc9c9c9, false}},
    {"contacts/ben-castle.vcf",
     "UID:sample-ben-castle\n"
     "FN:Ben Castle\n"
     "N:Castle;Ben;;;Jr.\n"
     "ORG:Castle Plumbing\n"
     "TITLE:Plumber\n"
     "TEL;TYPE=CELL:555-0150\n"
     "TEL;TYPE=CAR:555-0151\n"
     "TEL;TYPE=WORK,VOICE:555-0152\n"
     "NOTE:Rings twice.\n"},
    {"contacts/harbour-cafe.vcf",
     "UID:sample-harbour-cafe\n"
     "FN:Harbour Café\n"
     "N:;;;;\n"
     "ORG:Harbour Café\n"
     "TEL;TYPE=WORK,VOICE:555-0160\n"
     "EMAIL;TYPE=INTERNET:tables@example.com\n"
     "ADR;TYPE=WORK:;;1 Quay Street;Northhaven;NH;01234;Norland\n"},
};

QByteArray asDigits(const QDate &date)
{
    return date.toString(QStringLiteral("yyyyMMdd")).toLatin1();
}

/// @p place is what stands between the braces.
QDate dayAt(const QByteArray &place, const QDate &today)
{
    if (place.startsWith('w'))
        return today.addDays(1 - today.dayOfWeek() + place.mid(1).toInt());
    if (!place.startsWith('b'))
        return today.addDays(place.toInt());
    const QDate birthday = today.addDays(place.mid(1).toInt());
    return QDate(birthYear, birthday.month(), birthday.day());
}

QByteArray withDays(QByteArray content, const QDate &today)
{
    for (int start = content.indexOf('{'); start >= 0; start = content.indexOf('{', start)) {
        const int end = content.indexOf('}', start);
        const QDate day = dayAt(content.mid(start + 1, end - start - 1), today);
        content.replace(start, end + 1 - start, asDigits(day));
    }
    return content;
}

/// In lines of the length that is usual in cards.
QByteArray folded(const QByteArray &line)
{
    constexpr int length = 74;
    QByteArray lines = line.left(length);
    for (int i = length; i < line.size(); i += length)
        lines += "\n " + line.mid(i, length);
    return lines + '\n';
}

SampleItem toItem(const char *path, QByteArray content)
{
    return {QString::fromLatin1(path), content.replace('\n', "\r\n")};
}

} // namespace

std::vector<SampleItem> sampleItems(const QDate &today)
{
    std::vector<SampleItem> items;
    for (const Entry &entry : entries) {
        QByteArray component = entry.content;
        component.insert(component.indexOf('\n') + 1, "DTSTAMP:{0}T000000Z\n");
        items.push_back(toItem(entry.path,
                               "BEGIN:VCALENDAR\nVERSION:2.0\nPRODID:-//holm//Sample data//EN\n"
                                   + withDays(component, today) + "END:VCALENDAR\n"));
    }
    for (const Card &card : cards) {
        const QByteArray photo = card.photo
            ? folded("PHOTO;ENCODING=b;TYPE=PNG:" + samplePortrait(*card.photo).toBase64())
            : QByteArray();
        items.push_back(toItem(
            card.path, "BEGIN:VCARD\nVERSION:3.0\n" + withDays(card.content, today) + photo + "END:VCARD\n"));
    }
    return items;
}

} // namespace platform
