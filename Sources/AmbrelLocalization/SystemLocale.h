#pragma once

#include <QStringList>

#include <optional>
#include <string>
#include <string_view>

/// The operating system's language settings, read from the environment at each call. May be called on any thread, as
/// long as no other thread changes the environment at the same time.
namespace SystemLocale {

/// The user's languages as language tags, most preferred first: the list in LANGUAGE, then the locale for messages (the
/// first of LC_ALL, LC_MESSAGES and LANG that is set). Empty if no language is set.
QStringList preferredLanguages();

/// The region whose conventions apply to dates and numbers, such as "GB" or "419": that of the first of LC_ALL, LC_TIME
/// and LANG that is set. Empty if it names none.
std::string region();

/// The usual calendar in the locale of `region()`, by its CLDR name: "gregorian" nearly everywhere.
std::string calendar();

/// Returns the language tag for a POSIX locale name: "de_DE.UTF-8@euro" is "de-DE", "sr_RS@latin" is "sr-Latn-RS".
/// Returns std::nullopt for "C", "POSIX" and the empty name.
std::optional<std::string> languageTag(std::string_view posixName);

} // namespace SystemLocale
