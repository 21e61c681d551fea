#pragma once

// What the store of the outlook contract holds at first. Day 40134 is 17 November 2009.

namespace contracts {

constexpr double noSampleDate = 949998; // 1 January 4501

struct SampleAppointment
{
    const char16_t *subject;
    double start;
    double end;
    int everyDays = 0; ///< how often it comes again, 0 for never
    int count = 1; ///< how many times there are; 0 for no end
};

constexpr SampleAppointment sampleAppointments[] = {
    {u"Past", 40118.25, 40118.5},         {u"Soon", 40134.75, 40134.875},
    {u"Later", 40136.5, 40136.75},        {u"Ended", 40087.375, 40087.375, 1, 3},
    {u"Daily", 40118.375, 40118.5, 1, 0}, {u"Weekly", 40120.375, 40120.5, 7, 4},
};

struct SampleTask
{
    const char16_t *subject;
    double start;
    double due;
    bool isComplete = false;
};

constexpr SampleTask sampleTasks[] = {
    {u"Late", 40120, 40133},
    {u"Now", noSampleDate, 40134},
    {u"Done", 40110, 40118, true},
    {u"Early", 40125, 40127},
};

/// What they are filed as. All other texts are empty, but of "FileAs", where the name of each text is its
/// value, and whose dates are day 29280 and day 38412.
constexpr const char16_t *sampleContacts[] = {u"zo\u00eb\U0001f600", u"Bob", u"Zac", u"adam", u"FileAs"};
constexpr double sampleBirthday = 29280; // 29 February 1980
constexpr double sampleAnniversary = 38412; // 1 March 2005

/// A contact's texts in the model's order.
constexpr char contactTextNames[] =
    "BusinessFaxNumber CompanyName Department Email1Address MobileTelephoneNumber OfficeLocation PagerNumber "
    "BusinessTelephoneNumber JobTitle HomeTelephoneNumber Email2Address Spouse Email3Address "
    "Home2TelephoneNumber HomeFaxNumber CarTelephoneNumber AssistantName AssistantTelephoneNumber Children "
    "Categories WebPage Business2TelephoneNumber Title FirstName MiddleName LastName Suffix "
    "HomeAddressStreet HomeAddressCity HomeAddressState HomeAddressPostalCode HomeAddressCountry "
    "OtherAddressStreet OtherAddressCity OtherAddressState OtherAddressPostalCode OtherAddressCountry "
    "BusinessAddressStreet BusinessAddressCity BusinessAddressState BusinessAddressPostalCode "
    "BusinessAddressCountry RadioTelephoneNumber FileAs Body YomiCompanyName YomiFirstName YomiLastName";

} // namespace contracts
