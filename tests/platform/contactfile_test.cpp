#include "contracts/outlooksamples.h"
#include "platform/desktop/outlook/contact.h"
#include "platform/desktop/outlook/variantdate.h"
#include "support/pimprograms.h"

#include <QtCore/QDir>
#include <QtCore/QSet>

#include <gmock/gmock.h>

namespace {

using platform::Contact;
using platform::ContactText;
using platform::FileItems;
using testing::IsEmpty;

QString textOf(const Contact &contact, ContactText property)
{
    return contact.texts[static_cast<std::size_t>(property)];
}

QString dayOf(platform::VariantDate date)
{
    const auto time = platform::toSystemTime(date);
    if (!time || date == platform::noDate)
        return QStringLiteral("none");
    return QString::asprintf("%04d.%02d.%02d", time->year, time->month, time->day);
}

QByteArray sample(const QString &name)
{
    QFile file(PimPrograms::sampleFolder(QStringLiteral("contacts")) + QLatin1Char('/') + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll();
}

std::shared_ptr<const Contact> contactOf(const QByteArray &content)
{
    const FileItems file = platform::readContacts(content);
    EXPECT_EQ(file.problem, QString());
    EXPECT_EQ(file.items.size(), 1U);
    return std::dynamic_pointer_cast<const Contact>(file.items.at(0));
}

QByteArray cardOf(const QByteArray &lines)
{
    return "BEGIN:VCARD\r\nVERSION:3.0\r\n" + lines + "\r\nEND:VCARD\r\n";
}

/// As the texts beside the samples have it, one property a line.
QStringList linesOf(const Contact &contact, const QByteArray &photo)
{
    const QStringList names = QString::fromLatin1(contracts::contactTextNames).split(QLatin1Char(' '));
    EXPECT_EQ(names.size(), platform::contactTextCount);
    QStringList lines;
    for (int i = 0; i < names.size(); ++i) {
        QString text = textOf(contact, static_cast<ContactText>(i));
        if (!text.isEmpty())
            lines.append(names.at(i) + QLatin1String(": ")
                         + text.replace(QLatin1Char('\n'), QLatin1String("\\n")));
    }
    for (const auto &[name, date] :
         {std::pair("Birthday", contact.birthday), std::pair("Anniversary", contact.anniversary)}) {
        if (date != platform::noDate)
            lines.append(QLatin1String(name) + QLatin1String(": ") + dayOf(date));
    }
    if (photo.startsWith("\x89PNG"))
        lines.append(QStringLiteral("Photo: %1 bytes").arg(photo.size()));
    lines.sort();
    return lines;
}

TEST(ContactFile, HasAllThatACardHas)
{
    const QDir samples(PimPrograms::sampleFolder(QStringLiteral("contacts")));
    const QStringList names = samples.entryList({QStringLiteral("*.vcf")});
    EXPECT_GE(names.size(), 6);
    for (const QString &name : names) {
        const QByteArray content = sample(name);
        QStringList expected =
            QString::fromUtf8(sample(QString(name).replace(QLatin1String(".vcf"), QLatin1String(".txt"))))
                .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        expected.sort();
        EXPECT_EQ(linesOf(*contactOf(content), platform::readContactPhoto(content, 0)), expected)
            << name.toStdString();
    }
}

TEST(ContactFile, IsFiledByTheFirstNameThereIs)
{
    const std::pair<QByteArray, const char *> cases[] = {
        {"FN:Full Name\r\nN:Last;First;;;\r\nORG:Org", "Full Name"},
        {"FN: \r\nN:Last;First;;;\r\nORG:Org", "First Last"},
        {"ORG:Org\r\nEMAIL:a@b.example", "Org"},
        {"EMAIL:a@b.example\r\nTEL;TYPE=CELL:1", "a@b.example"},
        {"TEL;TYPE=CELL:1", "1"},
        {"NOTE:nothing else", ""},
    };
    for (const auto &[lines, expected] : cases)
        EXPECT_EQ(textOf(*contactOf(cardOf(lines)), ContactText::FileAs), QLatin1String(expected))
            << lines.constData();
}

TEST(ContactFile, HasWhatKhardLists)
{
    const QString kind = QStringLiteral("contacts");
    const PimPrograms programs;
    programs.copySamples(kind);
    // It takes no cards of version 2.1, and the year 1900 for one that is not known.
    for (const char *name : {"version-2.vcf", "birthday-without-year.vcf"})
        EXPECT_TRUE(QFile::remove(programs.folder(kind) + QLatin1Char('/') + QLatin1String(name)));
    QSet<QString> theirs;
    QSet<QString> ours;
    for (const char *what : {"phone", "email", "postaddress", "birthdays"}) {
        for (const QString &line : programs.runForLines(
                 QStringLiteral("khard"), {QLatin1String(what), QStringLiteral("--parsable")})) {
            if (line.contains(QLatin1Char('\t')))
                theirs.insert(line.section(QLatin1Char('\t'), 0, 0));
        }
    }
    const auto add = [&ours](const QString &text) {
        if (!text.isEmpty())
            ours.insert(text);
    };
    for (const QString &name : QDir(programs.folder(kind)).entryList({QStringLiteral("*.vcf")})) {
        const auto contact = contactOf(sample(name));
        for (const ContactText property :
             {ContactText::BusinessFaxNumber, ContactText::MobileTelephoneNumber, ContactText::PagerNumber,
              ContactText::BusinessTelephoneNumber, ContactText::HomeTelephoneNumber,
              ContactText::Home2TelephoneNumber, ContactText::HomeFaxNumber, ContactText::CarTelephoneNumber,
              ContactText::Business2TelephoneNumber, ContactText::Email1Address, ContactText::Email2Address,
              ContactText::Email3Address})
            add(textOf(*contact, property));
        for (const ContactText street : {ContactText::HomeAddressStreet, ContactText::OtherAddressStreet,
                                         ContactText::BusinessAddressStreet}) {
            const auto text = [&](int index) {
                return contact->texts[static_cast<std::size_t>(street) + static_cast<std::size_t>(index)];
            };
            if (!text(0).isEmpty())
                add(QStringLiteral("{'box': '', 'extended': '', 'street': '%1', 'code': '%4', 'city': '%2', "
                                   "'region': '%3', 'country': '%5'}")
                        .arg(text(0), text(1), text(2), text(3), text(4)));
        }
        if (contact->birthday != platform::noDate)
            add(dayOf(contact->birthday));
    }
    EXPECT_GE(ours.size(), 20);
    EXPECT_EQ(ours, theirs) << "only ours: " << (ours - theirs).values().join(QLatin1Char(' ')).toStdString()
                            << "\nonly theirs: "
                            << (theirs - ours).values().join(QLatin1Char(' ')).toStdString();
}

TEST(ContactFile, HoldsAnyNumberOfCards)
{
    const QByteArray three = cardOf("FN:A") + QByteArray("\r\n") + sample(QStringLiteral("everything.vcf"))
        + cardOf("UID:c\r\nFN:C");
    const FileItems file = platform::readContacts(three);
    ASSERT_EQ(file.items.size(), 3U);
    EXPECT_EQ(file.items[0]->uid(), QString());
    EXPECT_EQ(file.items[2]->uid(), QLatin1String("c"));
    EXPECT_EQ(platform::readContactPhoto(three, 1).size(), 68);
    EXPECT_EQ(platform::readContactPhoto(three, 2), QByteArray());
    EXPECT_EQ(platform::readContactPhoto(three, 3), QByteArray());
}

TEST(ContactFile, HasAProblemIfItIsBroken)
{
    QByteArray deep;
    for (int i = 0; i < 100'000; ++i)
        deep += "BEGIN:VCARD\r\n";
    const std::pair<QByteArray, const char *> cases[] = {
        {"", "this is no card"},
        {QByteArray(100, '\0'), "this is no card"},
        {"BEGIN:VCALENDAR\r\nEND:VCALENDAR\r\n", "this is no card"},
        {cardOf("FN:A").chopped(20), "the file ends in the middle"},
        {deep, "the file ends in the middle"},
        {QByteArray(16 << 20, 'x'), "this is no card"},
    };
    for (const auto &[content, problem] : cases) {
        const FileItems file = platform::readContacts(content);
        EXPECT_EQ(file.problem, QLatin1String(problem)) << content.left(99).constData();
        EXPECT_THAT(file.items, IsEmpty()) << content.left(99).constData();
    }
    EXPECT_EQ(textOf(*contactOf(cardOf("FN:Caf\xE9\r\nTEL:1")), ContactText::HomeTelephoneNumber),
              QLatin1String("1"));
}

} // namespace
