#include "AmbrelLocalization/SystemLocale.h"

#include <unicode/calendar.h>
#include <unicode/strenum.h>

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <mutex>

namespace {

using namespace std::literals;

// Longer names are no languages, and no tag parser need see them.
constexpr std::size_t longestName = 100;

std::string_view environment(const char* name) {
    const char* value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): see the header
    return value ? value : std::string_view();
}

std::string_view firstSet(std::initializer_list<const char*> names) {
    for (const char* name : names) {
        if (const std::string_view value = environment(name); !value.empty()) {
            return value;
        }
    }
    return {};
}

std::string_view scriptOfModifier(std::string_view modifier) {
    if (modifier == "latin") {
        return "Latn";
    }
    if (modifier == "cyrillic") {
        return "Cyrl";
    }
    return modifier == "devanagari" ? "Deva" : std::string_view();
}

/// POSIX names of Chinese locales leave the script to the country; whoever chooses a text by its script needs it named.
icu::Locale withScript(const icu::Locale& locale) {
    if (locale.getLanguage() != "zh"sv || *locale.getScript() != '\0') {
        return locale;
    }
    icu::Locale named(locale);
    UErrorCode status = U_ZERO_ERROR;
    named.addLikelySubtags(status);
    return U_SUCCESS(status) ? named : locale;
}

/// What follows from the name of the current locale; working it out costs more than a lookup may.
struct Formatting {
    std::string posixName;
    icu::Locale locale = icu::Locale::getEnglish();
    std::string calendar = "gregorian";

    explicit Formatting(std::string_view name) : posixName(name) {
        UErrorCode status = U_ZERO_ERROR;
        const auto tag = SystemLocale::languageTag(name);
        const icu::Locale parsed = icu::Locale::forLanguageTag(tag.value_or("und"), status);
        if (U_SUCCESS(status) && !parsed.isBogus() && *parsed.getLanguage() != '\0') {
            locale = withScript(parsed);
        }
        status = U_ZERO_ERROR;
        const std::unique_ptr<icu::StringEnumeration> names(
            icu::Calendar::getKeywordValuesForLocale("calendar", locale, true, status));
        const char* first = names ? names->next(nullptr, status) : nullptr;
        if (U_SUCCESS(status) && first) {
            calendar = first;
        }
    }
};

std::shared_ptr<const Formatting> currentFormatting() {
    static std::mutex mutex;
    static std::shared_ptr<const Formatting> known;

    const std::string_view name = firstSet({"LC_ALL", "LC_TIME", "LANG"});
    const std::lock_guard lock(mutex);
    if (!known || known->posixName != name) {
        known = std::make_shared<const Formatting>(name);
    }
    return known;
}

void append(QStringList& tags, std::string_view posixName) {
    if (const auto tag = SystemLocale::languageTag(posixName)) {
        tags.append(QString::fromStdString(*tag));
    }
}

} // namespace

namespace SystemLocale {

QStringList preferredLanguages() {
    QStringList tags;
    std::string_view list = environment("LANGUAGE");
    while (!list.empty()) {
        const std::size_t length = std::min(list.find(':'), list.size());
        append(tags, list.substr(0, length));
        list.remove_prefix(std::min(length + 1, list.size()));
    }
    append(tags, firstSet({"LC_ALL", "LC_MESSAGES", "LANG"}));
    return tags;
}

icu::Locale current() {
    return currentFormatting()->locale;
}

std::string calendar() {
    return currentFormatting()->calendar;
}

std::optional<std::string> languageTag(std::string_view posixName) {
    const std::size_t at = std::min(posixName.find('@'), posixName.size());
    const std::string_view modifier = posixName.substr(std::min(at + 1, posixName.size()));
    const std::string_view beforeModifier = posixName.substr(0, at);
    std::string tag(beforeModifier.substr(0, beforeModifier.find('.')));
    if (tag.empty() || tag.size() > longestName || tag == "C" || tag == "POSIX") {
        return std::nullopt;
    }
    std::replace(tag.begin(), tag.end(), '_', '-');
    if (const std::string_view script = scriptOfModifier(modifier); !script.empty()) {
        tag.insert(std::min(tag.find('-'), tag.size()), "-" + std::string(script));
    }
    return tag;
}

} // namespace SystemLocale
