#pragma once

#include <QString>

#include <cstdint>
#include <optional>

/// How a point in time is shown: which parts of it, how long, in which calendar and time zone. A plain value without
/// a locale: that is given when formatting. May be used on any thread.
struct AmbrelDateFormatStyle {
    /// none; 6/14/2026; Jun 14, 2026; June 14, 2026; Sunday, June 14, 2026
    enum class Date : std::uint8_t { none, numeric, abbreviated, longForm, complete };

    /// none; 9:41 AM; 9:41:00 AM; 9:41:00 AM GMT+2, with the zone as its distance from UTC
    enum class Time : std::uint8_t { none, shortened, standard, complete };

    /// Where the text will stand; languages that write months or weekdays in lower case differ by it.
    enum class CapitalizationContext : std::uint8_t { unknown, standalone, listItem, beginningOfSentence, middle };

    /// Without a date and without a time part the style shows both, numeric and shortened.
    Date date = Date::numeric;
    Time time = Time::shortened;

    /// A time zone of the tz database ("Europe/Berlin"); none is the system's as it is when formatting. An unknown
    /// name is taken for UTC.
    std::optional<QString> timeZone = std::nullopt;

    /// A calendar by its CLDR name ("gregorian", "buddhist", "japanese"); none is the system's as it is when
    /// formatting. An unknown name leaves the choice to the language.
    std::optional<QString> calendar = std::nullopt;

    CapitalizationContext capitalizationContext = CapitalizationContext::unknown;

    friend bool operator==(const AmbrelDateFormatStyle&, const AmbrelDateFormatStyle&) = default;
};
