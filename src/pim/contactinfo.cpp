#include "orvanecore/functionarguments.h"
#include "orvanecore/iapplication.h"
#include "pim/arguments.h"
#include "pim/outlookdates.h"
#include "pim/records.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

#include <QtCore/QMutexLocker>

using platform::ContactDate;
using platform::ContactText;
using platform::IContact;

namespace {

template <class Property>
struct NamedProperty
{
    const char *name;
    Property property;
};

const NamedProperty<ContactText> textProperties[] = {
    {"businessFaxNumber", ContactText::BusinessFaxNumber},
    {"companyName", ContactText::CompanyName},
    {"department", ContactText::Department},
    {"email1Address", ContactText::Email1Address},
    {"mobileTelephoneNumber", ContactText::MobileTelephoneNumber},
    {"officeLocation", ContactText::OfficeLocation},
    {"pagerNumber", ContactText::PagerNumber},
    {"businessTelephoneNumber", ContactText::BusinessTelephoneNumber},
    {"jobTitle", ContactText::JobTitle},
    {"homeTelephoneNumber", ContactText::HomeTelephoneNumber},
    {"email2Address", ContactText::Email2Address},
    {"spouse", ContactText::Spouse},
    {"email3Address", ContactText::Email3Address},
    {"home2TelephoneNumber", ContactText::Home2TelephoneNumber},
    {"homeFaxNumber", ContactText::HomeFaxNumber},
    {"carTelephoneNumber", ContactText::CarTelephoneNumber},
    {"assistantName", ContactText::AssistantName},
    {"assistantTelephoneNumber", ContactText::AssistantTelephoneNumber},
    {"children", ContactText::Children},
    {"categories", ContactText::Categories},
    {"webPage", ContactText::WebPage},
    {"business2TelephoneNumber", ContactText::Business2TelephoneNumber},
    {"title", ContactText::Title},
    {"firstName", ContactText::FirstName},
    {"middleName", ContactText::MiddleName},
    {"lastName", ContactText::LastName},
    {"suffix", ContactText::Suffix},
    {"homeAddressStreet", ContactText::HomeAddressStreet},
    {"homeAddressCity", ContactText::HomeAddressCity},
    {"homeAddressState", ContactText::HomeAddressState},
    {"homeAddressPostalCode", ContactText::HomeAddressPostalCode},
    {"homeAddressCountry", ContactText::HomeAddressCountry},
    {"otherAddressStreet", ContactText::OtherAddressStreet},
    {"otherAddressCity", ContactText::OtherAddressCity},
    {"otherAddressState", ContactText::OtherAddressState},
    {"otherAddressPostalCode", ContactText::OtherAddressPostalCode},
    {"otherAddressCountry", ContactText::OtherAddressCountry},
    {"businessAddressStreet", ContactText::BusinessAddressStreet},
    {"businessAddressCity", ContactText::BusinessAddressCity},
    {"businessAddressState", ContactText::BusinessAddressState},
    {"businessAddressPostalCode", ContactText::BusinessAddressPostalCode},
    {"businessAddressCountry", ContactText::BusinessAddressCountry},
    {"radioTelephoneNumber", ContactText::RadioTelephoneNumber},
    {"fileAs", ContactText::FileAs},
    {"body", ContactText::Body},
    {"yomiCompanyName", ContactText::YomiCompanyName},
    {"yomiFirstName", ContactText::YomiFirstName},
    {"yomiLastName", ContactText::YomiLastName},
};
static_assert(std::size(textProperties) == platform::contactTextCount);

const NamedProperty<ContactDate> dateProperties[] = {
    {"birthday", ContactDate::Birthday},
    {"anniversary", ContactDate::Anniversary},
};

/// All of a contact's properties. What the store cannot give is empty, as is a date that is not set.
Record detailsOf(IContact &contact, const DateTexts &texts)
{
    Record details;
    for (const auto &entry : textProperties) {
        const std::u16string text = contact.get_Text(entry.property).value_or(std::u16string());
        details.push_back({entry.name, QString::fromStdU16String(text)});
    }
    for (const auto &entry : dateProperties) {
        const platform::VariantDate date = contact.get_Date(entry.property).value_or(platform::noDate);
        const bool isSet = date < platform::noDate;
        details.push_back({entry.name, isSet ? texts.date(date).value_or(QString()) : QString()});
    }
    return details;
}

} // namespace

void KestCommandProvider::contactInfo(FunctionArguments *arguments)
{
    const bool isValid = argumentsMatch(
        *arguments, {3, 3, {ArgumentType::Number, ArgumentType::Object, ArgumentType::Function}});
    if (!checkOutlookCall("contactInfo", isValid))
        return;

    QMutexLocker lock(&m_poomMutex);
    Record details; // none if there is no such contact
    const auto item = m_outlook->GetItemFromOid(oidOf(arguments->argument(0)));
    if (auto *const contact = dynamic_cast<IContact *>(item.get()))
        details = detailsOf(*contact, DateTexts(*m_outlook, QStringLiteral("MM/dd/yyyy")));
    lock.unlock();
    const QScriptValue result =
        details.empty() ? m_application->nullValue() : scriptObject(*m_application, details);
    answer(arguments->argument(1), arguments->argument(2), {result});
}
