#pragma once

#include "platform/pocketoutlook.h"

#include <optional>

class QDateTime;

namespace platform {

/// The first day that can be told, 1 January 100.
constexpr VariantDate firstDay = -657434.0;

/// A moment in the machine's time zone, to the second. noDate if it is invalid or not in the years 100 to
/// 9999.
VariantDate toVariantDate(const QDateTime &moment);

/// The nearest second, as the system writes it. Nothing outside the years 100 to 9999.
std::optional<SystemTime> toSystemTime(VariantDate date);

/// To the second: milliseconds are dropped, and the day of the week is not looked at. Nothing if there is no
/// such date or time of day, or not in the years 100 to 9999.
std::optional<VariantDate> toVariantDate(const SystemTime &time);

} // namespace platform
