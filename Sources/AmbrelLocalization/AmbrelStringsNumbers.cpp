#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/FormatterCache.h"
#include "AmbrelLocalization/IcuText.h"

#include <unicode/numberformatter.h>

#include <string>

namespace AmbrelStrings {

namespace {

using icu::number::FormattedNumber;
using icu::number::LocalizedNumberFormatter;
using icu::number::NumberFormatter;

std::shared_ptr<const LocalizedNumberFormatter> numberFormatter(const icu::Locale& locale) {
    static FormatterCache<LocalizedNumberFormatter> cache;
    return cache.formatter({locale.getName()}, [&locale] {
        return std::make_unique<LocalizedNumberFormatter>(NumberFormatter::withLocale(locale));
    });
}

std::shared_ptr<const LocalizedNumberFormatter> percentFormatter(const icu::Locale& locale) {
    static FormatterCache<LocalizedNumberFormatter> cache;
    return cache.formatter({locale.getName()}, [&locale] {
        return std::make_unique<LocalizedNumberFormatter>(NumberFormatter::withLocale(locale)
                                                              .unit(icu::NoUnit::percent())
                                                              .scale(icu::number::Scale::powerOfTen(2))
                                                              .precision(icu::number::Precision::integer()));
    });
}

/// Returns `plain` if ICU has no data to format with.
QString text(const FormattedNumber& number, UErrorCode status, const QString& plain) {
    const icu::UnicodeString text = number.toString(status);
    return U_SUCCESS(status) ? IcuText::toQString(text) : plain;
}

} // namespace

QString formattedNumber(std::int64_t value, const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    const FormattedNumber number = numberFormatter(locale)->formatInt(value, status);
    return text(number, status, QString::number(value));
}

QString formattedNumber(std::uint64_t value, const icu::Locale& locale) {
    // ICU takes signed 64-bit integers; larger values are passed as decimal text.
    UErrorCode status = U_ZERO_ERROR;
    const FormattedNumber number = numberFormatter(locale)->formatDecimal(std::to_string(value), status);
    return text(number, status, QString::number(value));
}

QString formattedPercent(double fraction, const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    const FormattedNumber number = percentFormatter(locale)->formatDouble(fraction, status);
    return text(number, status, QString::number(fraction * 100, 'f', 0) + u'%');
}

} // namespace AmbrelStrings
