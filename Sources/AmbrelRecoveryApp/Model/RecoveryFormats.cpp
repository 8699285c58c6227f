#include "AmbrelRecoveryApp/Model/RecoveryFormats.h"

#include "AmbrelLocalization/AmbrelStrings.h"

#include <chrono>

QString RecoveryFormats::percent(double fraction, const icu::Locale& locale) {
    return AmbrelStrings::formattedPercent(fraction, locale);
}

QString RecoveryFormats::date(std::int64_t milliseconds, const icu::Locale& locale) {
    using Time = std::chrono::sys_time<std::chrono::milliseconds>;
    return AmbrelStrings::formattedDateTime(Time(std::chrono::milliseconds(milliseconds)), locale);
}
