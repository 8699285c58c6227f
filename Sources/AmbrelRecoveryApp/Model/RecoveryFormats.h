#pragma once

#include <QString>
#include <unicode/locid.h>

#include <cstdint>

/// How the model and the screens write what a recovery tells in numbers. Any thread.
namespace RecoveryFormats {

/// A fraction as a whole percentage, not clamped.
QString percent(double fraction, const icu::Locale& locale);

/// A time, in milliseconds since the Unix epoch, as date and time in the user's calendar and time zone.
QString date(std::int64_t milliseconds, const icu::Locale& locale);

} // namespace RecoveryFormats
