#include "platform/desktop/outlook/contact.h"
#include "platform/desktop/outlook/cardsplitter.h"
#include "platform/desktop/outlook/variantdate.h"

#include <KContacts/VCardConverter>

#include <algorithm>

namespace platform {

namespace {

using KContacts::Address;
using KContacts::Addressee;
using KContacts::PhoneNumber;

/// By which other programs tell a birthday of which the year is not known: the first leap year that the
/// system can write.
constexpr int yearOfUnknown = 1604;

QString &textOf(Contact &contact, ContactText property)
{
    return contact.texts[static_cast<std::size_t>(property)];
}

struct TextSource
{
    ContactText property;
    QString (*text)(const Addressee &);
};

const TextSource textSources[] = {
    {ContactText::CompanyName, [](const Addressee &card) { return card.organization(); }},
    {ContactText::Department, [](const Addressee &card) { return card.department(); }},
    {ContactText::OfficeLocation, [](const Addressee &card) { return card.office(); }},
    {ContactText::JobTitle, [](const Addressee &card) { return card.title(); }},
    {ContactText::Spouse, [](const Addressee &card) { return card.spousesName(); }},
    {ContactText::AssistantName, [](const Addressee &card) { return card.assistantsName(); }},
    {ContactText::Categories,
     [](const Addressee &card) { return card.categories().join(QStringLiteral(", ")); }},
    {ContactText::WebPage, [](const Addressee &card) { return card.url().url().toString(); }},
    {ContactText::Title, [](const Addressee &card) { return card.prefix(); }},
    {ContactText::FirstName, [](const Addressee &card) { return card.givenName(); }},
    {ContactText::MiddleName, [](const Addressee &card) { return card.additionalName(); }},
    {ContactText::LastName, [](const Addressee &card) { return card.familyName(); }},
    {ContactText::Suffix, [](const Addressee &card) { return card.suffix(); }},
    {ContactText::Body, [](const Addressee &card) { return card.note().remove(QLatin1Char('\r')); }},
    {ContactText::YomiCompanyName,
     [](const Addressee &card) { return card.custom(QStringLiteral("PHONETIC"), QStringLiteral("ORG")); }},
    {ContactText::YomiFirstName,
     [](const Addressee &card) {
         return card.custom(QStringLiteral("PHONETIC"), QStringLiteral("FIRST-NAME"));
     }},
    {ContactText::YomiLastName,
     [](const Addressee &card) {
         return card.custom(QStringLiteral("PHONETIC"), QStringLiteral("LAST-NAME"));
     }},
};

/// Which numbers go where, of those that no row before takes.
struct NumberPlace
{
    int types; ///< all of which it has
    std::vector<ContactText> properties; ///< of the first such number, the second one, and so on
};

const NumberPlace numberPlaces[] = {
    {PhoneNumber::Fax | PhoneNumber::Home, {ContactText::HomeFaxNumber}},
    {PhoneNumber::Fax, {ContactText::BusinessFaxNumber}},
    {PhoneNumber::Pager, {ContactText::PagerNumber}},
    {PhoneNumber::Car, {ContactText::CarTelephoneNumber}},
    {PhoneNumber::Cell, {ContactText::MobileTelephoneNumber}},
    {PhoneNumber::Work, {ContactText::BusinessTelephoneNumber, ContactText::Business2TelephoneNumber}},
    {0, {ContactText::HomeTelephoneNumber, ContactText::Home2TelephoneNumber}},
};

struct AddressPlace
{
    int types;
    ContactText street; ///< then come city, state, postal code and country
};

const AddressPlace addressPlaces[] = {
    {Address::Home, ContactText::HomeAddressStreet},
    {Address::Work, ContactText::BusinessAddressStreet},
    {0, ContactText::OtherAddressStreet},
};

template <typename Place, std::size_t size>
const Place &placeFor(const Place (&places)[size], int types)
{
    return *std::find_if(std::begin(places), std::end(places),
                         [types](const Place &place) { return (types & place.types) == place.types; });
}

QString withoutScheme(const QString &number)
{
    const QLatin1String scheme("tel:");
    return number.startsWith(scheme, Qt::CaseInsensitive) ? number.mid(scheme.size()) : number;
}

void readNumbers(const Addressee &card, Contact &contact)
{
    PhoneNumber::List numbers = card.phoneNumbers();
    std::stable_partition(numbers.begin(), numbers.end(), [](const auto &one) { return one.isPreferred(); });
    for (const PhoneNumber &number : qAsConst(numbers)) {
        for (const ContactText property : placeFor(numberPlaces, int(number.type())).properties) {
            QString &text = textOf(contact, property);
            if (text.isEmpty()) {
                text = withoutScheme(number.number());
                break;
            }
        }
    }
}

void readEmails(const Addressee &card, Contact &contact)
{
    const QStringList addresses = card.emails();
    int next = 0;
    for (const ContactText property :
         {ContactText::Email1Address, ContactText::Email2Address, ContactText::Email3Address}) {
        textOf(contact, property) = addresses.value(next++);
    }
}

QString streetOf(const Address &address)
{
    QStringList parts = {address.postOfficeBox(), address.extended(), address.street()};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

void readAddresses(const Addressee &card, Contact &contact)
{
    Address::List addresses = card.addresses();
    std::stable_partition(addresses.begin(), addresses.end(),
                          [](const Address &one) { return one.type().testFlag(Address::Pref); });
    for (const Address &address : qAsConst(addresses)) {
        const QString parts[] = {streetOf(address), address.locality(), address.region(),
                                 address.postalCode(), address.country()};
        const auto begin = contact.texts.begin()
            + static_cast<std::ptrdiff_t>(placeFor(addressPlaces, int(address.type())).street);
        const auto end = begin + static_cast<std::ptrdiff_t>(std::size(parts));
        if (std::all_of(begin, end, [](const QString &text) { return text.isEmpty(); }))
            std::copy(std::begin(parts), std::end(parts), begin);
    }
}

VariantDate dayOf(QDate date)
{
    if (date.isValid() && date.year() < 0)
        date = QDate(yearOfUnknown, date.month(), date.day());
    return toVariantDate(QDateTime(date, QTime(0, 0)));
}

QString fileAs(const Addressee &card, const Contact &contact)
{
    const auto text = [&contact](ContactText property) {
        return contact.texts[static_cast<std::size_t>(property)];
    };
    QStringList names = {card.formattedName(), card.assembledName(), text(ContactText::CompanyName),
                         text(ContactText::Email1Address)};
    for (const NumberPlace &place : numberPlaces)
        names += text(place.properties.front());
    const auto first = std::find_if(names.cbegin(), names.cend(),
                                    [](const QString &name) { return !name.trimmed().isEmpty(); });
    return first == names.cend() ? QString() : first->trimmed();
}

} // namespace

FileItems readContacts(const QByteArray &content)
{
    const CardFile file = splitCards(content);
    FileItems result{{}, file.problem};
    const KContacts::VCardConverter converter;
    for (const Card &text : file.cards) {
        const Addressee card = converter.parseVCard(text.text);
        const auto contact = std::make_shared<Contact>(text.hasUid ? card.uid() : QString());
        for (const TextSource &source : textSources)
            textOf(*contact, source.property) = source.text(card);
        readNumbers(card, *contact);
        readEmails(card, *contact);
        readAddresses(card, *contact);
        textOf(*contact, ContactText::FileAs) = fileAs(card, *contact);
        contact->birthday = dayOf(card.birthday().date());
        contact->anniversary = dayOf(card.anniversary());
        result.items.push_back(contact);
    }
    return result;
}

QByteArray readContactPhoto(const QByteArray &content, std::size_t index)
{
    const CardFile file = splitCards(content);
    return index < file.cards.size() ? pictureIn(file.cards[index].photo) : QByteArray();
}

} // namespace platform
