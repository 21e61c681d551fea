#include "platform/desktop/outlook/variantdate.h"

#include <QtCore/QDateTime>

#include <cmath>

namespace platform {

namespace {

constexpr int firstYear = 100;
constexpr int lastYear = 9999;
constexpr VariantDate dayAfterLast = 2958466.0;
constexpr int secondsPerDay = 86400;
constexpr int daysPerWeek = 7;
const QDate dayZero(1899, 12, 30);

std::optional<VariantDate> toVariantDate(QDate date, QTime time)
{
    if (!date.isValid() || !time.isValid() || date.year() < firstYear || date.year() > lastYear)
        return std::nullopt;
    const auto day = static_cast<double>(dayZero.daysTo(date));
    const double timeOfDay = static_cast<double>(QTime(0, 0).secsTo(time)) / secondsPerDay;
    // The time of day counts forwards on days before day zero, too.
    return day < 0 ? day - timeOfDay : day + timeOfDay;
}

} // namespace

VariantDate toVariantDate(const QDateTime &moment)
{
    const QDateTime local = moment.toLocalTime();
    return toVariantDate(local.date(), local.time()).value_or(noDate);
}

std::optional<SystemTime> toSystemTime(VariantDate date)
{
    if (!(date > firstDay - 1 && date < dayAfterLast)) // nor any number at all
        return std::nullopt;
    const double day = std::trunc(date);
    const auto seconds = static_cast<int>(std::lround(std::abs(date - day) * secondsPerDay));
    const QDate moment = dayZero.addDays(static_cast<qint64>(day) + seconds / secondsPerDay);
    const QTime time = QTime(0, 0).addSecs(seconds % secondsPerDay);
    if (moment.year() < firstYear || moment.year() > lastYear)
        return std::nullopt;
    SystemTime result;
    result.year = static_cast<std::uint16_t>(moment.year());
    result.month = static_cast<std::uint16_t>(moment.month());
    result.dayOfWeek = static_cast<std::uint16_t>(moment.dayOfWeek() % daysPerWeek);
    result.day = static_cast<std::uint16_t>(moment.day());
    result.hour = static_cast<std::uint16_t>(time.hour());
    result.minute = static_cast<std::uint16_t>(time.minute());
    result.second = static_cast<std::uint16_t>(time.second());
    return result;
}

std::optional<VariantDate> toVariantDate(const SystemTime &time)
{
    return toVariantDate(QDate(time.year, time.month, time.day), QTime(time.hour, time.minute, time.second));
}

} // namespace platform
