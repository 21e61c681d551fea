#include "pim/outlookdates.h"

#include "platform/platform.h"

using platform::SystemTime;
using platform::VariantDate;

namespace {

constexpr int capacity = 100; // characters, with the terminating null

QString orEmpty(const std::optional<std::u16string> &text)
{
    return text ? QString::fromStdU16String(*text) : QString();
}

} // namespace

VariantDate currentDate(platform::IPOutlookApp &outlook)
{
    return outlook.SystemTimeToVariantTime(platform::current().clock().localTime()).value_or(0);
}

DateTexts::DateTexts(platform::IPOutlookApp &outlook, const QString &datePicture, const QString &timePicture)
    : m_outlook(outlook)
    , m_datePicture(datePicture.toStdU16String())
    , m_timePicture(timePicture.toStdU16String())
{
}

std::optional<QString> DateTexts::date(std::optional<VariantDate> date) const
{
    const std::optional<SystemTime> time = toSystemTime(date);
    return time ? std::make_optional(dateText(*time)) : std::nullopt;
}

std::optional<QString> DateTexts::dateAndTime(std::optional<VariantDate> date) const
{
    const std::optional<SystemTime> time = toSystemTime(date);
    if (!time)
        return std::nullopt;
    return dateText(*time) + QLatin1Char(' ')
        + orEmpty(platform::current().clock().timeText(*time, m_timePicture, capacity));
}

std::optional<SystemTime> DateTexts::toSystemTime(std::optional<VariantDate> date) const
{
    return date ? m_outlook.VariantTimeToSystemTime(*date) : std::nullopt;
}

QString DateTexts::dateText(const SystemTime &time) const
{
    return orEmpty(platform::current().clock().dateText(time, m_datePicture, capacity));
}
