#pragma once

#include <QStringList>
#include <unicode/locid.h>

#include <optional>
#include <string>
#include <string_view>

/// The operating system's language settings, read from the environment at each call. May be called on any thread, as
/// long as no other thread changes the environment at the same time.
namespace SystemLocale {

/// The user's languages as language tags, most preferred first: the list in LANGUAGE, then the locale for messages (the
/// first of LC_ALL, LC_MESSAGES and LANG that is set). Empty if no language is set.
QStringList preferredLanguages();

/// The POSIX name of the locale whose conventions apply to dates and numbers, such as "de_DE.UTF-8": the first of
/// LC_ALL, LC_TIME and LANG that is set. Empty if none is.
std::string conventions();

/// The region of `conventions()`, such as "GB" or "419". Empty if it names none.
std::string region();

/// The usual calendar in the locale of `conventions()`, by its CLDR name: "gregorian" nearly everywhere. Costs much
/// more than `conventions()`.
std::string calendar();

/// Returns the language tag for a POSIX locale name: "de_DE.UTF-8@euro" is "de-DE", "sr_RS@latin" is "sr-Latn-RS".
/// Returns std::nullopt for "C", "POSIX" and the empty name.
std::optional<std::string> languageTag(std::string_view posixName);

/// Returns the locale of a language tag, or the root locale if `tag` is not one.
icu::Locale localeOfTag(const std::string& tag);

} // namespace SystemLocale
