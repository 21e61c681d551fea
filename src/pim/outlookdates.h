#pragma once

#include <platform/pocketoutlook.h>

#include <QtCore/QString>

/// Now, as the store writes it.
platform::VariantDate currentDate(platform::IPOutlookApp &outlook);

/// Dates of the store as texts. A text that the system cannot make, as when it is longer than 99 characters,
/// is empty.
class DateTexts
{
public:
    /// Pictures as platform::Clock takes them.
    DateTexts(platform::IPOutlookApp &outlook, const QString &datePicture,
              const QString &timePicture = QString());

    /// Nothing if the store cannot convert the date.
    std::optional<QString> date(std::optional<platform::VariantDate> date) const;

    /// The date, a blank and the time.
    std::optional<QString> dateAndTime(std::optional<platform::VariantDate> date) const;

private:
    std::optional<platform::SystemTime> toSystemTime(std::optional<platform::VariantDate> date) const;
    QString dateText(const platform::SystemTime &time) const;

    platform::IPOutlookApp &m_outlook;
    const std::u16string m_datePicture;
    const std::u16string m_timePicture;
};
