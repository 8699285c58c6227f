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

/// The product's catalogue of visible texts, and the styles in which values are shown beside them.
///
/// Every function may be called on any thread and none throws: a text that is missing in the chosen language is shown
/// in English, and one that is missing there too is shown as its key. The only hard failure is a program without any
/// resource bundle, which the first lookup ends with a message.
namespace AmbrelStrings {

// One function per key, each giving that key's entry: recoveryInspectAction() is "ambrel.recovery.inspect.action".
#define AMBREL_STRING(member, key)                                                                                     \
    constexpr LocalizedStringResource member() {                                                                       \
        return LocalizedStringResource(key);                                                                           \
    }
#include "AmbrelLocalization/CatalogueKeys.inc"
#undef AMBREL_STRING

/// Every entry of the catalogue, each once, the recovery group first.
std::span<const LocalizedStringResource> interfaceResources();

/// The entry's text in the current interface language. Only the entry's key counts.
QString localized(const LocalizedStringResource& resource);

/// The entry's text for `localeIdentifier`, which is taken unchanged ("pt" and "en-GB" name no table and give
/// English). Without an identifier the same as `localized`.
QString resolved(const LocalizedStringResource& resource, const std::optional<QString>& localeIdentifier);

/// The language whose texts stand in for missing ones: "en".
QString sourceLocaleIdentifier();

/// The languages of the catalogue, in the order of `AmbrelInterfaceLanguage`.
const QStringList& launchLocaleIdentifiers();

/// The languages that have a text for every key: all of them.
const QStringList& completeLocaleIdentifiers();

/// The languages whose texts a person has reviewed: "en".
const QStringList& humanReviewedLocaleIdentifiers();

/// The user's stored choice, read afresh at every call; `system` where there is none.
AmbrelInterfaceLanguage currentInterfaceLanguage();

/// The catalogue's language for a user who prefers `preferredLanguages` (language tags, the most wanted first).
/// Always one of `launchLocaleIdentifiers()`; "en" where nothing matches. Malformed tags and those whose language
/// has a code of three letters are passed over.
QString resolvedSystemLocaleIdentifier(const QStringList& preferredLanguages);

/// The locale of every number, size and date shown beside a text: that of the chosen language, or, where none is
/// chosen, that of the language shown in the region of LC_ALL, else LC_TIME, else LANG. No other setting counts, so
/// that all digits and separators on a screen are of one kind. Read afresh at every call.
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

/// "3 / 10": both numbers as `formattedNumber` gives them. The separator is the same in every language.
template<std::integral Value, std::integral Total>
QString formattedProgress(Value value, Total total, const icu::Locale& locale) {
    return formattedNumber(value, locale) + QStringLiteral(" / ") + formattedNumber(total, locale);
}

/// A fraction as a percentage without fraction digits: 0.42 is "42%" in English. Not clamped.
QString formattedPercent(double fraction, const icu::Locale& locale);

/// A point in time in `style`, with the names, order and digits of `locale`: the text that ICU's data gives, unchanged.
QString formattedDate(std::chrono::sys_time<std::chrono::milliseconds> date, const AmbrelDateFormatStyle& style,
                      const icu::Locale& locale);

/// Abbreviated date and shortened time, "Jun 14, 2026, 9:41 AM" in English, in the system's calendar and time zone as
/// they are at the call.
QString formattedDateTime(std::chrono::sys_time<std::chrono::milliseconds> date, const icu::Locale& locale);

/// A count of bytes in decimal multiples: whole bytes and kilobytes, megabytes with one fraction digit, larger units
/// with up to two. 0 is shown as a word.
QString formattedFileSize(std::int64_t byteCount, const icu::Locale& locale);

/// Days, hours, minutes and seconds, abbreviated; the two largest that are not zero, the last one rounded.
QString formattedDuration(std::chrono::duration<double> duration, const icu::Locale& locale);

/// The text with its first character upper-cased by the rules of `locale` and the rest unchanged.
QString sentenceInitialCapitalized(const QString& text, const icu::Locale& locale);

/// Where the viewer stands, "3 of 10" in English: the catalogue's format, filled with both numbers.
QString viewerPosition(std::int64_t current, std::int64_t total);

} // namespace AmbrelStrings
