#pragma once

#include <QStringList>

#include <optional>
#include <string>
#include <string_view>

/// What the operating system says about the user's languages, read from the environment at every call.
/// May be called on any thread, as long as no other thread changes the environment at the same time.
namespace SystemLocale {

/// The user's languages as language tags, the most wanted first: the list in LANGUAGE, then the locale of the messages
/// (the first of LC_ALL, LC_MESSAGES and LANG that is set). Empty where the system is set to no language.
QStringList preferredLanguages();

/// The region whose conventions dates and numbers follow, such as "GB" or "419": that of the first of LC_ALL, LC_TIME
/// and LANG that is set. Empty where it names none.
std::string region();

/// The calendar that people use in the locale of `region()`, by its CLDR name: "gregorian" nearly everywhere.
std::string calendar();

/// The language tag of a POSIX locale name: "de_DE.UTF-8@euro" is "de-DE", "sr_RS@latin" is "sr-Latn-RS".
/// None for "C", "POSIX" and the empty name.
std::optional<std::string> languageTag(std::string_view posixName);

} // namespace SystemLocale
