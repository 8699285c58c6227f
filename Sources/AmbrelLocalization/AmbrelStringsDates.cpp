#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/FormatterCache.h"
#include "AmbrelLocalization/IcuText.h"
#include "AmbrelLocalization/SystemLocale.h"
#include "AmbrelLocalization/SystemTimeZone.h"

#include <unicode/calendar.h>
#include <unicode/dtptngen.h>
#include <unicode/simpletz.h>
#include <unicode/smpdtfmt.h>

#include <cstdint>
#include <memory>
#include <string>

namespace AmbrelStrings {

namespace {

using Style = AmbrelDateFormatStyle;

/// The fields of a style as a CLDR skeleton; the language determines their order and separators.
std::string skeleton(const Style& style) {
    const bool isEmpty = style.date == Style::Date::none && style.time == Style::Time::none;
    std::string result;
    switch (isEmpty ? Style::Date::numeric : style.date) {
    case Style::Date::none:
        break;
    case Style::Date::numeric:
        result = "yMd";
        break;
    case Style::Date::abbreviated:
        result = "yMMMd";
        break;
    case Style::Date::longForm:
        result = "yMMMMd";
        break;
    case Style::Date::complete:
        result = "yMMMMEEEEd";
        break;
    }
    switch (isEmpty ? Style::Time::shortened : style.time) {
    case Style::Time::none:
        break;
    case Style::Time::shortened:
        result += "jm";
        break;
    case Style::Time::standard:
        result += "jms";
        break;
    case Style::Time::complete:
        result += "jmsz";
        break;
    }
    return result;
}

UDisplayContext displayContext(Style::CapitalizationContext context) {
    switch (context) {
    case Style::CapitalizationContext::unknown:
        break;
    case Style::CapitalizationContext::standalone:
        return UDISPCTX_CAPITALIZATION_FOR_STANDALONE;
    case Style::CapitalizationContext::listItem:
        return UDISPCTX_CAPITALIZATION_FOR_UI_LIST_OR_MENU;
    case Style::CapitalizationContext::beginningOfSentence:
        return UDISPCTX_CAPITALIZATION_FOR_BEGINNING_OF_SENTENCE;
    case Style::CapitalizationContext::middle:
        return UDISPCTX_CAPITALIZATION_FOR_MIDDLE_OF_SENTENCE;
    }
    return UDISPCTX_CAPITALIZATION_NONE;
}

constexpr std::size_t longestUsualDescription = 80;

/// The parameters of a date formatter, with the system's calendar already resolved.
struct Recipe {
    std::string skeleton;
    std::string calendar;
    UDisplayContext context = UDISPCTX_CAPITALIZATION_NONE;

    explicit Recipe(const Style& style)
        : skeleton(AmbrelStrings::skeleton(style)),
          calendar(style.calendar ? style.calendar->toStdString() : SystemLocale::calendar()),
          context(displayContext(style.capitalizationContext)) {}

    /// Uniquely identifies this recipe in this locale.
    std::string description(const icu::Locale& locale) const {
        std::string result;
        result.reserve(longestUsualDescription);
        result.append(skeleton).append("|");
        result.append(std::to_string(context)).append("|");
        // Both names can contain any character; the length prefix keeps them apart.
        result.append(std::to_string(calendar.size())).append("|").append(calendar).append(locale.getName());
        return result;
    }
};

std::unique_ptr<const icu::SimpleDateFormat> newFormatter(const Recipe& recipe, icu::Locale locale) {
    UErrorCode status = U_ZERO_ERROR;
    locale.setKeywordValue("calendar", recipe.calendar.c_str(), status);
    // An invalid calendar name keeps the locale's default calendar.
    status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    if (U_FAILURE(status) || !generator) {
        return nullptr;
    }
    const icu::UnicodeString pattern = generator->getBestPattern(icu::UnicodeString::fromUTF8(recipe.skeleton), status);
    auto formatter = std::make_unique<icu::SimpleDateFormat>(pattern, locale, status);
    if (U_FAILURE(status)) {
        return nullptr;
    }
    formatter->setContext(recipe.context, status);
    return formatter;
}

std::shared_ptr<const icu::SimpleDateFormat> dateFormatter(const Style& style, const icu::Locale& locale) {
    static FormatterCache<icu::SimpleDateFormat> cache;
    const Recipe recipe(style);
    return cache.formatter(recipe.description(locale), [&] { return newFormatter(recipe, locale); });
}

std::chrono::seconds offset(std::chrono::sys_time<std::chrono::milliseconds> date, const Style& style) {
    const auto time = std::chrono::floor<std::chrono::seconds>(date);
    return style.timeZone ? SystemTimeZone::offset(time, *style.timeZone) : SystemTimeZone::offset(time);
}

/// A copy of the formatter's calendar, which threads share, set to `date` with a fixed `offset` from UTC.
std::unique_ptr<icu::Calendar> calendarAt(std::chrono::sys_time<std::chrono::milliseconds> date,
                                          std::chrono::seconds offset, const icu::Calendar& prototype) {
    std::unique_ptr<icu::Calendar> calendar(prototype.clone());
    const auto rawOffset = static_cast<std::int32_t>(std::chrono::milliseconds(offset).count());
    calendar->adoptTimeZone(new icu::SimpleTimeZone(rawOffset, icu::UnicodeString()));
    UErrorCode status = U_ZERO_ERROR;
    calendar->setTime(static_cast<double>(date.time_since_epoch().count()), status);
    return calendar;
}

} // namespace

QString formattedDate(std::chrono::sys_time<std::chrono::milliseconds> date, const AmbrelDateFormatStyle& style,
                      const icu::Locale& locale) {
    icu::UnicodeString text;
    if (const auto formatter = dateFormatter(style, locale)) {
        icu::FieldPosition ignored;
        formatter->format(*calendarAt(date, offset(date, style), *formatter->getCalendar()), text, ignored);
    }
    return text.isEmpty() ? QString::number(date.time_since_epoch().count()) : IcuText::toQString(text);
}

QString formattedDateTime(std::chrono::sys_time<std::chrono::milliseconds> date, const icu::Locale& locale) {
    const AmbrelDateFormatStyle style{.date = Style::Date::abbreviated, .time = Style::Time::shortened};
    return formattedDate(date, style, locale);
}

} // namespace AmbrelStrings
