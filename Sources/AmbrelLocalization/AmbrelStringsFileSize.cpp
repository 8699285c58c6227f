#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/FormatterCache.h"
#include "AmbrelLocalization/IcuText.h"

#include <unicode/formattedvalue.h>
#include <unicode/measunit.h>
#include <unicode/numberformatter.h>
#include <unicode/rbnf.h>

#include <array>
#include <cmath>
#include <vector>

namespace AmbrelStrings {

namespace {

using icu::number::FormattedNumber;
using icu::number::LocalizedNumberFormatter;
using icu::number::NumberFormatter;

struct Unit {
    /// The smallest part of the unit that is shown, in bytes, and how many of them make the unit.
    double step;
    double steps;
    icu::MeasureUnit (*measure)();
};

constexpr std::array<Unit, 6> units = {{
    {1, 1, icu::MeasureUnit::getByte},
    {1e3, 1, icu::MeasureUnit::getKilobyte},
    {1e5, 10, icu::MeasureUnit::getMegabyte},
    {1e7, 100, icu::MeasureUnit::getGigabyte},
    {1e10, 100, icu::MeasureUnit::getTerabyte},
    {1e13, 100, icu::MeasureUnit::getPetabyte},
}};
constexpr std::size_t byte = 0;
constexpr std::size_t kilobyte = 1;

struct Amount {
    double value;
    std::size_t unit;
};

/// The size in the largest unit in which it is at least one after rounding (half to even), so that 999,999 bytes are
/// one megabyte, not 1,000 kilobytes.
Amount rounded(double byteCount) {
    for (std::size_t index = 0;; ++index) {
        const Unit& unit = units[index];
        const double value = std::nearbyint(byteCount / unit.step) / unit.steps;
        if (std::abs(value) < 1'000 || index + 1 == units.size()) {
            return {value, index};
        }
    }
}

struct Formatters {
    std::vector<LocalizedNumberFormatter> ofUnit;
    QString zero;
};

/// The word for zero. In Chinese and Japanese, the everyday numerals use a digit for zero and the formal ones a word,
/// so the formal ones are preferred if a language has them.
icu::UnicodeString zeroWord(const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    icu::RuleBasedNumberFormat speller(icu::URBNF_SPELLOUT, locale, status);
    icu::UnicodeString word;
    if (U_FAILURE(status)) {
        return word;
    }
    UErrorCode formalStatus = U_ZERO_ERROR;
    speller.setDefaultRuleSet(u"%spellout-cardinal-financial", formalStatus);
    speller.format(std::int32_t{0}, word);
    return word;
}

/// "Zero kB": the locale's text for 0 kilobytes with the digit replaced by the word.
QString zeroText(const LocalizedNumberFormatter& formatter, const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    const FormattedNumber number = formatter.formatInt(0, status);
    icu::UnicodeString text = number.toString(status);
    icu::ConstrainedFieldPosition position;
    position.constrainField(UFIELD_CATEGORY_NUMBER, UNUM_INTEGER_FIELD);
    const icu::UnicodeString word = zeroWord(locale);
    if (!word.isEmpty() && number.nextPosition(position, status)) {
        text.replaceBetween(position.getStart(), position.getLimit(), word);
    }
    return sentenceInitialCapitalized(IcuText::toQString(text), locale);
}

std::shared_ptr<const Formatters> sizeFormatters(const icu::Locale& locale) {
    static FormatterCache<Formatters> cache;
    return cache.formatter({locale.getName()}, [&locale] {
        auto formatters = std::make_unique<Formatters>();
        for (std::size_t index = 0; index < units.size(); ++index) {
            // Bytes are spelled out, since their abbreviation alone is unclear.
            const auto width = index == byte ? UNUM_UNIT_WIDTH_FULL_NAME : UNUM_UNIT_WIDTH_SHORT;
            formatters->ofUnit.push_back(
                NumberFormatter::withLocale(locale).unit(units[index].measure()).unitWidth(width));
        }
        formatters->zero = zeroText(formatters->ofUnit[kilobyte], locale);
        return formatters;
    });
}

} // namespace

QString formattedFileSize(std::int64_t byteCount, const icu::Locale& locale) {
    const std::shared_ptr<const Formatters> formatters = sizeFormatters(locale);
    if (byteCount == 0 && !formatters->zero.isEmpty()) {
        return formatters->zero;
    }
    const Amount amount = rounded(static_cast<double>(byteCount));
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString text = formatters->ofUnit[amount.unit].formatDouble(amount.value, status).toString(status);
    return U_SUCCESS(status) ? IcuText::toQString(text) : QString::number(byteCount);
}

} // namespace AmbrelStrings
