#pragma once

#include <windows.h>

#include <oaidl.h>

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor" // as in pimstore.h

namespace platform::pimstore {

/// A contact. The methods stand in the order of the table of functions, those that are not called without
/// their parameters.
struct IContact : IDispatch
{
    static constexpr IID id{0x7F804E40, 0x2010, 0x11D2, {0x8F, 0x18, 0x00, 0x00, 0xF8, 0x7A, 0x43, 0x35}};

    STDMETHOD(get_Birthday)(DATE *date) = 0;
    STDMETHOD(get_Anniversary)(DATE *date) = 0;
    STDMETHOD(get_BusinessFaxNumber)(BSTR *text) = 0;
    STDMETHOD(get_CompanyName)(BSTR *text) = 0;
    STDMETHOD(get_Department)(BSTR *text) = 0;
    STDMETHOD(get_Email1Address)(BSTR *text) = 0;
    STDMETHOD(get_MobileTelephoneNumber)(BSTR *text) = 0;
    STDMETHOD(get_OfficeLocation)(BSTR *text) = 0;
    STDMETHOD(get_PagerNumber)(BSTR *text) = 0;
    STDMETHOD(get_BusinessTelephoneNumber)(BSTR *text) = 0;
    STDMETHOD(get_JobTitle)(BSTR *text) = 0;
    STDMETHOD(get_HomeTelephoneNumber)(BSTR *text) = 0;
    STDMETHOD(get_Email2Address)(BSTR *text) = 0;
    STDMETHOD(get_Spouse)(BSTR *text) = 0;
    STDMETHOD(get_Email3Address)(BSTR *text) = 0;
    STDMETHOD(get_Home2TelephoneNumber)(BSTR *text) = 0;
    STDMETHOD(get_HomeFaxNumber)(BSTR *text) = 0;
    STDMETHOD(get_CarTelephoneNumber)(BSTR *text) = 0;
    STDMETHOD(get_AssistantName)(BSTR *text) = 0;
    STDMETHOD(get_AssistantTelephoneNumber)(BSTR *text) = 0;
    STDMETHOD(get_Children)(BSTR *text) = 0;
    STDMETHOD(get_Categories)(BSTR *text) = 0;
    STDMETHOD(get_WebPage)(BSTR *text) = 0;
    STDMETHOD(get_Business2TelephoneNumber)(BSTR *text) = 0;
    STDMETHOD(get_Title)(BSTR *text) = 0;
    STDMETHOD(get_FirstName)(BSTR *text) = 0;
    STDMETHOD(get_MiddleName)(BSTR *text) = 0;
    STDMETHOD(get_LastName)(BSTR *text) = 0;
    STDMETHOD(get_Suffix)(BSTR *text) = 0;
    STDMETHOD(get_HomeAddressStreet)(BSTR *text) = 0;
    STDMETHOD(get_HomeAddressCity)(BSTR *text) = 0;
    STDMETHOD(get_HomeAddressState)(BSTR *text) = 0;
    STDMETHOD(get_HomeAddressPostalCode)(BSTR *text) = 0;
    STDMETHOD(get_HomeAddressCountry)(BSTR *text) = 0;
    STDMETHOD(get_OtherAddressStreet)(BSTR *text) = 0;
    STDMETHOD(get_OtherAddressCity)(BSTR *text) = 0;
    STDMETHOD(get_OtherAddressState)(BSTR *text) = 0;
    STDMETHOD(get_OtherAddressPostalCode)(BSTR *text) = 0;
    STDMETHOD(get_OtherAddressCountry)(BSTR *text) = 0;
    STDMETHOD(get_BusinessAddressStreet)(BSTR *text) = 0;
    STDMETHOD(get_BusinessAddressCity)(BSTR *text) = 0;
    STDMETHOD(get_BusinessAddressState)(BSTR *text) = 0;
    STDMETHOD(get_BusinessAddressPostalCode)(BSTR *text) = 0;
    STDMETHOD(get_BusinessAddressCountry)(BSTR *text) = 0;
    STDMETHOD(get_RadioTelephoneNumber)(BSTR *text) = 0;
    STDMETHOD(get_FileAs)(BSTR *text) = 0;
    STDMETHOD(get_Body)(BSTR *text) = 0;
    STDMETHOD(get_YomiCompanyName)(BSTR *text) = 0;
    STDMETHOD(get_YomiFirstName)(BSTR *text) = 0;
    STDMETHOD(get_YomiLastName)(BSTR *text) = 0;

    STDMETHOD(put_Birthday)() = 0;
    STDMETHOD(put_Anniversary)() = 0;
    STDMETHOD(put_BusinessFaxNumber)() = 0;
    STDMETHOD(put_CompanyName)() = 0;
    STDMETHOD(put_Department)() = 0;
    STDMETHOD(put_Email1Address)() = 0;
    STDMETHOD(put_MobileTelephoneNumber)() = 0;
    STDMETHOD(put_OfficeLocation)() = 0;
    STDMETHOD(put_PagerNumber)() = 0;
    STDMETHOD(put_BusinessTelephoneNumber)() = 0;
    STDMETHOD(put_JobTitle)() = 0;
    STDMETHOD(put_HomeTelephoneNumber)() = 0;
    STDMETHOD(put_Email2Address)() = 0;
    STDMETHOD(put_Spouse)() = 0;
    STDMETHOD(put_Email3Address)() = 0;
    STDMETHOD(put_Home2TelephoneNumber)() = 0;
    STDMETHOD(put_HomeFaxNumber)() = 0;
    STDMETHOD(put_CarTelephoneNumber)() = 0;
    STDMETHOD(put_AssistantName)() = 0;
    STDMETHOD(put_AssistantTelephoneNumber)() = 0;
    STDMETHOD(put_Children)() = 0;
    STDMETHOD(put_Categories)() = 0;
    STDMETHOD(put_WebPage)() = 0;
    STDMETHOD(put_Business2TelephoneNumber)() = 0;
    STDMETHOD(put_Title)() = 0;
    STDMETHOD(put_FirstName)() = 0;
    STDMETHOD(put_MiddleName)() = 0;
    STDMETHOD(put_LastName)() = 0;
    STDMETHOD(put_Suffix)() = 0;
    STDMETHOD(put_HomeAddressStreet)() = 0;
    STDMETHOD(put_HomeAddressCity)() = 0;
    STDMETHOD(put_HomeAddressState)() = 0;
    STDMETHOD(put_HomeAddressPostalCode)() = 0;
    STDMETHOD(put_HomeAddressCountry)() = 0;
    STDMETHOD(put_OtherAddressStreet)() = 0;
    STDMETHOD(put_OtherAddressCity)() = 0;
    STDMETHOD(put_OtherAddressState)() = 0;
    STDMETHOD(put_OtherAddressPostalCode)() = 0;
    STDMETHOD(put_OtherAddressCountry)() = 0;
    STDMETHOD(put_BusinessAddressStreet)() = 0;
    STDMETHOD(put_BusinessAddressCity)() = 0;
    STDMETHOD(put_BusinessAddressState)() = 0;
    STDMETHOD(put_BusinessAddressPostalCode)() = 0;
    STDMETHOD(put_BusinessAddressCountry)() = 0;
    STDMETHOD(put_RadioTelephoneNumber)() = 0;
    STDMETHOD(put_FileAs)() = 0;
    STDMETHOD(put_Body)() = 0;
    STDMETHOD(put_YomiCompanyName)() = 0;
    STDMETHOD(put_YomiFirstName)() = 0;
    STDMETHOD(put_YomiLastName)() = 0;

    STDMETHOD(Save)() = 0;
    STDMETHOD(Delete)() = 0;
    STDMETHOD(Copy)() = 0;
    STDMETHOD(Display)() = 0;
    STDMETHOD(get_Oid)(LONG *oid) = 0;
    STDMETHOD(put_BodyInk)() = 0;
    STDMETHOD(get_BodyInk)() = 0;
    STDMETHOD(get_Application)() = 0;
};

} // namespace platform::pimstore

#pragma GCC diagnostic pop
