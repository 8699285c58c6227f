#pragma once

#include <QString>

#include <cstdint>
#include <optional>

/// How to show a point in time: which parts, in what length, in which calendar and time zone. A plain value; the locale
/// is passed when formatting. May be used on any thread.
struct AmbrelDateFormatStyle {
    /// none; 6/14/2026; Jun 14, 2026; June 14, 2026; Sunday, June 14, 2026
    enum class Date : std::uint8_t { none, numeric, abbreviated, longForm, complete };

    /// none; 9:41 AM; 9:41:00 AM; 9:41:00 AM GMT+2, with the zone as its offset from UTC
    enum class Time : std::uint8_t { none, shortened, standard, complete };

    /// The position of the text; languages that write months or weekdays in lower case may capitalize them depending on
    /// it.
    enum class CapitalizationContext : std::uint8_t { unknown, standalone, listItem, beginningOfSentence, middle };

    /// A style with neither a date nor a time shows both, as numeric and shortened.
    Date date = Date::numeric;
    Time time = Time::shortened;

    /// A time zone of the tz database ("Europe/Berlin"); std::nullopt selects the system's time zone at the time of
    /// formatting. An unknown name selects UTC.
    std::optional<QString> timeZone = std::nullopt;

    /// A calendar by its CLDR name ("gregorian", "buddhist", "japanese"); std::nullopt selects the system's calendar at
    /// the time of formatting. With an unknown name, the language decides.
    std::optional<QString> calendar = std::nullopt;

    CapitalizationContext capitalizationContext = CapitalizationContext::unknown;
};
