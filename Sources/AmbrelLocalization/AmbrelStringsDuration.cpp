#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/FormatterCache.h"
#include "AmbrelLocalization/IcuText.h"

#include <unicode/measfmt.h>
#include <unicode/measunit.h>
#include <unicode/measure.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace AmbrelStrings {

namespace {

struct Unit {
    std::int64_t seconds;
    icu::MeasureUnit (*measure)();
};

constexpr std::array<Unit, 4> units = {{
    {86'400, icu::MeasureUnit::getDay},
    {3'600, icu::MeasureUnit::getHour},
    {60, icu::MeasureUnit::getMinute},
    {1, icu::MeasureUnit::getSecond},
}};
constexpr std::size_t maximumUnitCount = 2;

/// The number of each unit in a duration.
using Amounts = std::array<std::int64_t, units.size()>;

Amounts amounts(std::int64_t seconds) {
    Amounts result = {};
    for (std::size_t index = 0; index < units.size(); ++index) {
        result[index] = seconds / units[index].seconds;
        seconds %= units[index].seconds;
    }
    return result;
}

std::int64_t roundedToMultiple(double value, std::int64_t step) {
    return std::llrint(value / static_cast<double>(step)) * step;
}

/// The largest nonzero units, the last one rounded (half to even). Rounding can carry into a larger unit (59 min 59.6
/// s), so the units are chosen again afterwards.
Amounts largestAmounts(double seconds) {
    Amounts result = amounts(roundedToMultiple(seconds, 1));
    std::size_t shown = 0;
    for (std::size_t index = 0; index < units.size(); ++index) {
        if (result[index] == 0) {
            continue;
        }
        if (++shown == maximumUnitCount) {
            result = amounts(roundedToMultiple(seconds, units[index].seconds));
            break;
        }
    }
    return result;
}

std::shared_ptr<const icu::MeasureFormat> durationFormatter(const icu::Locale& locale) {
    static FormatterCache<icu::MeasureFormat> cache;
    return cache.formatter({locale.getName()}, [&locale] {
        UErrorCode status = U_ZERO_ERROR;
        auto formatter = std::make_unique<icu::MeasureFormat>(locale, UMEASFMT_WIDTH_SHORT, status);
        return U_SUCCESS(status) ? std::move(formatter) : nullptr;
    });
}

std::vector<icu::Measure> measures(const Amounts& amounts, bool isNegative) {
    std::vector<icu::Measure> result;
    const auto add = [&result, isNegative](std::int64_t amount, const Unit& unit) {
        // Only the largest unit has a sign.
        const std::int64_t value = isNegative && result.empty() ? -amount : amount;
        UErrorCode status = U_ZERO_ERROR;
        result.emplace_back(icu::Formattable(value), new icu::MeasureUnit(unit.measure()), status);
    };
    for (std::size_t index = 0; index < units.size() && result.size() < maximumUnitCount; ++index) {
        if (amounts[index] != 0) {
            add(amounts[index], units[index]);
        }
    }
    if (result.empty()) {
        add(0, units.back());
    }
    return result;
}

} // namespace

QString formattedDuration(std::chrono::duration<double> duration, const icu::Locale& locale) {
    // NaN is treated as zero. Durations are clamped to the range in which a double is exact to the second.
    constexpr double longest = 9e15;
    const double seconds = std::isnan(duration.count()) ? 0 : std::clamp(duration.count(), -longest, longest);
    const std::vector<icu::Measure> shown = measures(largestAmounts(std::abs(seconds)), seconds < 0);
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString text;
    icu::FieldPosition position;
    if (const auto formatter = durationFormatter(locale)) {
        formatter->formatMeasures(shown.data(), static_cast<std::int32_t>(shown.size()), text, position, status);
    }
    return text.isEmpty() ? QString::number(seconds, 'f', 0) : IcuText::toQString(text);
}

} // namespace AmbrelStrings
