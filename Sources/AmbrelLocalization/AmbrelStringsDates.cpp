#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/FormatterCache.h"
#include "AmbrelLocalization/IcuText.h"
#include "AmbrelLocalization/SystemLocale.h"
#include "AmbrelLocalization/SystemTimeZone.h"

#include <unicode/calendar.h>
#include <unicode/dtptngen.h>
#include <unicode/simpletz.h>
#include <unicode/smpdtfmt.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace AmbrelStrings {

namespace {

using Style = AmbrelDateFormatStyle;

// The fields of the parts of a style, and its contexts, in the order of their enumerators.
constexpr std::array dateFields = {"", "yMd", "yMMMd", "yMMMMd", "yMMMMEEEEd"};
constexpr std::array timeFields = {"", "jm", "jms", "jmsz"};
constexpr std::array contexts = {
    UDISPCTX_CAPITALIZATION_NONE, UDISPCTX_CAPITALIZATION_FOR_STANDALONE, UDISPCTX_CAPITALIZATION_FOR_UI_LIST_OR_MENU,
    UDISPCTX_CAPITALIZATION_FOR_BEGINNING_OF_SENTENCE, UDISPCTX_CAPITALIZATION_FOR_MIDDLE_OF_SENTENCE};
static_assert(dateFields.size() == static_cast<std::size_t>(AmbrelDateFormatStyle::Date::complete) + 1);
static_assert(timeFields.size() == static_cast<std::size_t>(AmbrelDateFormatStyle::Time::complete) + 1);
static_assert(contexts.size() == static_cast<std::size_t>(AmbrelDateFormatStyle::CapitalizationContext::middle) + 1);

/// The fields of a style as a CLDR skeleton; the language determines their order and separators.
std::string skeleton(const Style& style) {
    if (style.date == Style::Date::none && style.time == Style::Time::none) {
        return skeleton({.date = Style::Date::numeric, .time = Style::Time::shortened});
    }
    return std::string(dateFields[static_cast<std::size_t>(style.date)]) +
           timeFields[static_cast<std::size_t>(style.time)];
}

std::unique_ptr<const icu::SimpleDateFormat> newFormatter(const Style& style, icu::Locale locale) {
    const std::string calendar = style.calendar ? style.calendar->toStdString() : SystemLocale::calendar();
    UErrorCode status = U_ZERO_ERROR;
    locale.setKeywordValue("calendar", calendar.c_str(), status);
    // An invalid calendar name keeps the locale's default calendar.
    status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    if (U_FAILURE(status) || !generator) {
        return nullptr;
    }
    const icu::UnicodeString pattern = generator->getBestPattern(icu::UnicodeString::fromUTF8(skeleton(style)), status);
    auto formatter = std::make_unique<icu::SimpleDateFormat>(pattern, locale, status);
    if (U_FAILURE(status)) {
        return nullptr;
    }
    formatter->setContext(contexts[static_cast<std::size_t>(style.capitalizationContext)], status);
    return formatter;
}

std::shared_ptr<const icu::SimpleDateFormat> dateFormatter(const Style& style, const icu::Locale& locale) {
    static FormatterCache<icu::SimpleDateFormat> cache;
    // The system's conventions are a cheaper key than the calendar that follows from them.
    return cache.formatter({skeleton(style), std::to_string(static_cast<int>(style.capitalizationContext)),
                            style.calendar ? "calendar" : "conventions",
                            style.calendar ? style.calendar->toStdString() : SystemLocale::conventions(),
                            locale.getName()},
                           [&] { return newFormatter(style, locale); });
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
