#include "contracts/outlook.h"
#include "contracts/outlooksamples.h"

#include "support/outlookdevice.h"

#include <QtCore/QDateTime>

namespace contracts {

namespace {

QDate dayOf(double date)
{
    return QDate(1899, 12, 30).addDays(static_cast<qint64>(date));
}

QByteArray property(const QByteArray &name, double date)
{
    const QTime time = QTime(0, 0).addSecs(qRound((date - static_cast<qint64>(date)) * 86400));
    return name + ':' + QDateTime(dayOf(date), time).toString(QStringLiteral("yyyyMMdd'T'HHmmss")).toLatin1()
        + "\r\n";
}

QByteArray dayProperty(const QByteArray &name, double date)
{
    return date == noSampleDate
        ? QByteArray()
        : name + ";VALUE=DATE:" + dayOf(date).toString(QStringLiteral("yyyyMMdd")).toLatin1() + "\r\n";
}

QByteArray utf8(const char16_t *text)
{
    return QString::fromUtf16(text).toUtf8();
}

/// A contact whose texts have their names as values, as far as a card can have them.
const QByteArray fullContact =
    "N:LastName;FirstName;MiddleName;Title;Suffix\r\n"
    "TEL;TYPE=WORK,FAX:BusinessFaxNumber\r\nTEL;TYPE=HOME,FAX:HomeFaxNumber\r\n"
    "TEL;TYPE=CELL:MobileTelephoneNumber\r\nTEL;TYPE=PAGER:PagerNumber\r\n"
    "TEL;TYPE=CAR:CarTelephoneNumber\r\nTEL;TYPE=WORK:BusinessTelephoneNumber\r\n"
    "TEL;TYPE=WORK:Business2TelephoneNumber\r\nTEL;TYPE=HOME:HomeTelephoneNumber\r\n"
    "TEL;TYPE=HOME:Home2TelephoneNumber\r\n"
    "EMAIL:Email1Address\r\nEMAIL:Email2Address\r\nEMAIL:Email3Address\r\n"
    "ORG:CompanyName;Department\r\nTITLE:JobTitle\r\nURL:WebPage\r\nNOTE:Body\r\n"
    "CATEGORIES:Categories\r\nBDAY:1980-02-29\r\n"
    "X-KADDRESSBOOK-X-Office:OfficeLocation\r\n"
    "X-KADDRESSBOOK-X-SpousesName:Spouse\r\n"
    "X-KADDRESSBOOK-X-AssistantsName:AssistantName\r\n"
    "X-KADDRESSBOOK-X-Anniversary:2005-03-01\r\n"
    "X-PHONETIC-ORG:YomiCompanyName\r\nX-PHONETIC-FIRST-NAME:YomiFirstName\r\n"
    "X-PHONETIC-LAST-NAME:YomiLastName\r\n";

QByteArray addressOf(const QByteArray &kind, const QByteArray &type)
{
    QByteArray line = "ADR;TYPE=" + type + ":;";
    for (const char *part : {"Street", "City", "State", "PostalCode", "Country"})
        line += ';' + kind + "Address" + part;
    return line + "\r\n";
}

class DeviceStore : public OutlookStore
{
public:
    DeviceStore()
    {
        for (const SampleAppointment &each : sampleAppointments) {
            QByteArray rule;
            if (each.everyDays != 0)
                rule = "RRULE:FREQ=DAILY;INTERVAL=" + QByteArray::number(each.everyDays)
                    + (each.count != 0 ? ";COUNT=" + QByteArray::number(each.count) : QByteArray()) + "\r\n";
            m_device.writeEvent(utf8(each.subject),
                                property("DTSTART", each.start) + property("DTEND", each.end) + rule);
        }
        QByteArray tasks;
        for (const SampleTask &each : sampleTasks)
            tasks += "BEGIN:VTODO\r\nUID:" + utf8(each.subject) + "\r\nSUMMARY:" + utf8(each.subject) + "\r\n"
                + dayProperty("DTSTART", each.start) + dayProperty("DUE", each.due)
                + (each.isComplete ? "STATUS:COMPLETED\r\n" : "") + "END:VTODO\r\n";
        m_device.write(QStringLiteral("tasks/all.ics"), OutlookDevice::calendar(tasks));
        QByteArray cards;
        for (const char16_t *name : sampleContacts) {
            cards += "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:" + utf8(name) + "\r\n";
            if (utf8(name) == "FileAs")
                cards += fullContact + addressOf("Home", "HOME") + addressOf("Business", "WORK")
                    + addressOf("Other", "POSTAL");
            cards += "END:VCARD\r\n";
        }
        m_device.write(QStringLiteral("contacts/all.vcf"), cards);
    }

    std::unique_ptr<platform::IPOutlookApp> connect() override { return m_device.connect(); }
    platform::HiddenWindows &windows() override { return m_device.windows(); }

    void change(std::uint32_t message, const std::u16string &subject) override
    {
        const QByteArray name = utf8(subject.c_str());
        if (message == platform::OutlookMessage::itemDeleted)
            QFile::remove(m_device.path(QStringLiteral("calendar/%1.ics").arg(QString::fromUtf8(name))));
        else
            m_device.writeEvent(
                name, property("DTSTART", message == platform::OutlookMessage::itemCreated ? 40200 : 40201));
    }

    /// These have no place in a card.
    bool keepsText(const std::string &name) const override
    {
        return name != "AssistantTelephoneNumber" && name != "Children" && name != "RadioTelephoneNumber";
    }

private:
    OutlookDevice m_device;
};

} // namespace

std::unique_ptr<OutlookStore> makeOutlookStore()
{
    return std::make_unique<DeviceStore>();
}

} // namespace contracts
