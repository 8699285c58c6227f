#pragma once

#include "AmbrelLocalization/AmbrelDateFormatStyle.h"
#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"
#include "AmbrelLocalization/LocalizedStringResource.h"

#include <QString>
#include <QStringList>
#include <unicode/locid.h>

#include <chrono>
#include <concepts>
#include <cstdint>
#include <optional>
#include <span>

/// The catalogue of all visible texts, and the formatting of the values shown with them.
///
/// Every function may be called on any thread, and none throws. A text that is missing in the chosen language is shown
/// in English; if it is missing there too, its key is shown. The only fatal error is a program without any resource
/// bundle: the first lookup then ends the process with a message.
namespace AmbrelStrings {

// One function per key, which returns that key's entry: recoveryInspectAction() is "ambrel.recovery.inspect.action".
#define AMBREL_STRING(member, key)                                                                                     \
    constexpr LocalizedStringResource member() {                                                                       \
        return LocalizedStringResource(key);                                                                           \
    }
#include "AmbrelLocalization/CatalogueKeys.inc"
#undef AMBREL_STRING

/// All entries of the catalogue, each once, starting with the recovery group.
std::span<const LocalizedStringResource> interfaceResources();

/// Returns the entry's text in the current interface language. Only the entry's key is used.
QString localized(const LocalizedStringResource& resource);

/// Returns the entry's text for `localeIdentifier`, which must match exactly ("pt" and "en-GB" name no table, so the
/// result is English). Without an identifier, same as `localized`.
QString resolved(const LocalizedStringResource& resource, const std::optional<QString>& localeIdentifier);

/// The language used for missing texts: "en".
QString sourceLocaleIdentifier();

/// The languages of the catalogue, in the order of `AmbrelInterfaceLanguage`.
const QStringList& launchLocaleIdentifiers();

/// The languages with a text for every key: all of them.
const QStringList& completeLocaleIdentifiers();

/// The languages whose texts were reviewed by a person: "en".
const QStringList& humanReviewedLocaleIdentifiers();

/// The user's stored choice, read at each call; `system` if there is none.
AmbrelInterfaceLanguage currentInterfaceLanguage();

/// Returns the catalogue's language for a user who prefers `preferredLanguages` (language tags, most preferred first).
/// Always one of `launchLocaleIdentifiers()`; "en" if nothing matches. Malformed tags and tags with three-letter
/// language codes are skipped.
QString resolvedSystemLocaleIdentifier(const QStringList& preferredLanguages);

/// The locale for all numbers, sizes and dates shown with texts: the locale of the chosen language. If none is chosen,
/// the locale of the shown language in the region of LC_ALL, else LC_TIME, else LANG. No other setting is used, so
/// digits and separators are consistent across a screen. Determined at each call.
icu::Locale currentFormattingLocale();

/// A grouped integer without fraction digits, "1,200,000" in English.
QString formattedNumber(std::int64_t value, const icu::Locale& locale);
QString formattedNumber(std::uint64_t value, const icu::Locale& locale);

template<std::integral Value>
requires(!std::same_as<Value, bool>) QString formattedNumber(Value value, const icu::Locale& locale) {
    if constexpr (std::unsigned_integral<Value>) {
        return formattedNumber(static_cast<std::uint64_t>(value), locale);
    } else {
        return formattedNumber(static_cast<std::int64_t>(value), locale);
    }
}

/// "3 / 10": both numbers formatted with `formattedNumber`. The separator is the same in every language.
template<std::integral Value, std::integral Total>
QString formattedProgress(Value value, Total total, const icu::Locale& locale) {
    return formattedNumber(value, locale) + QStringLiteral(" / ") + formattedNumber(total, locale);
}

/// Formats a fraction as a percentage without fraction digits: 0.42 is "42%" in English. Not clamped.
QString formattedPercent(double fraction, const icu::Locale& locale);

/// Formats a point in time in `style`, with the names, order and digits of `locale`, exactly as in ICU's data.
QString formattedDate(std::chrono::sys_time<std::chrono::milliseconds> date, const AmbrelDateFormatStyle& style,
                      const icu::Locale& locale);

/// Abbreviated date and shortened time, "Jun 14, 2026, 9:41 AM" in English, in the system's calendar and time zone at
/// the time of the call.
QString formattedDateTime(std::chrono::sys_time<std::chrono::milliseconds> date, const icu::Locale& locale);

/// A number of bytes in decimal units: bytes and kilobytes without fraction digits, megabytes with one, larger units
/// with up to two. 0 is shown as a word.
QString formattedFileSize(std::int64_t byteCount, const icu::Locale& locale);

/// Days, hours, minutes and seconds, abbreviated. Shows the two largest nonzero units, the last one rounded.
QString formattedDuration(std::chrono::duration<double> duration, const icu::Locale& locale);

/// Returns `text` with its first character in upper case by the rules of `locale`, and the rest unchanged.
QString sentenceInitialCapitalized(const QString& text, const icu::Locale& locale);

/// The viewer's position, "3 of 10" in English: the catalogue's format filled in with both numbers.
QString viewerPosition(std::int64_t current, std::int64_t total);

} // namespace AmbrelStrings
