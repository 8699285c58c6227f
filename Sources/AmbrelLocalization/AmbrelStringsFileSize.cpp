#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/FormatterCache.h"
#include "AmbrelLocalization/IcuText.h"

#include <unicode/formattedvalue.h>
#include <unicode/measunit.h>
#include <unicode/numberformatter.h>
#include <unicode/rbnf.h>

#include <array>
#include <vector>

namespace AmbrelStrings {

namespace {

using icu::number::FormattedNumber;
using icu::number::LocalizedNumberFormatter;
using icu::number::NumberFormatter;

struct Unit {
    std::uint64_t bytes;
    unsigned fractionDigits;
    icu::MeasureUnit (*measure)();
};

constexpr std::array<Unit, 6> units = {{
    {1, 0, icu::MeasureUnit::getByte},
    {1'000, 0, icu::MeasureUnit::getKilobyte},
    {1'000'000, 1, icu::MeasureUnit::getMegabyte},
    {1'000'000'000, 2, icu::MeasureUnit::getGigabyte},
    {1'000'000'000'000, 2, icu::MeasureUnit::getTerabyte},
    {1'000'000'000'000'000, 2, icu::MeasureUnit::getPetabyte},
}};
constexpr std::size_t kilobyte = 1;

constexpr std::uint64_t powerOfTen(unsigned exponent) {
    return exponent == 0 ? 1 : 10 * powerOfTen(exponent - 1);
}

struct Amount {
    double value;
    std::size_t unit;
};

/// The size in the largest unit in which it is at least one after rounding (half to even), so that 999,999 bytes are
/// one megabyte, not 1,000 kilobytes.
Amount rounded(std::uint64_t byteCount) {
    for (std::size_t index = 0;; ++index) {
        const Unit& unit = units[index];
        const std::uint64_t scale = powerOfTen(unit.fractionDigits);
        const std::uint64_t step = unit.bytes / scale;
        std::uint64_t steps = byteCount / step;
        const std::uint64_t rest = byteCount % step;
        if (rest > step - rest || (rest == step - rest && steps % 2 == 1)) {
            ++steps;
        }
        if (steps < 1'000 * scale || index + 1 == units.size()) {
            return {static_cast<double>(steps) / static_cast<double>(scale), index};
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
    return cache.formatter(locale.getName(), [&locale] {
        auto formatters = std::make_unique<Formatters>();
        for (const Unit& unit : units) {
            // Bytes are spelled out, since their abbreviation alone is unclear.
            const auto width = unit.bytes == 1 ? UNUM_UNIT_WIDTH_FULL_NAME : UNUM_UNIT_WIDTH_SHORT;
            const auto digits = static_cast<std::int32_t>(unit.fractionDigits);
            formatters->ofUnit.push_back(NumberFormatter::withLocale(locale)
                                             .unit(unit.measure())
                                             .unitWidth(width)
                                             .precision(icu::number::Precision::maxFraction(digits)));
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
    const bool isNegative = byteCount < 0;
    const auto bits = static_cast<std::uint64_t>(byteCount);
    const Amount amount = rounded(isNegative ? 0 - bits : bits);
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString text = formatters->ofUnit[amount.unit]
                                        .formatDouble(isNegative ? -amount.value : amount.value, status)
                                        .toString(status);
    return U_SUCCESS(status) ? IcuText::toQString(text) : QString::number(byteCount);
}

} // namespace AmbrelStrings
