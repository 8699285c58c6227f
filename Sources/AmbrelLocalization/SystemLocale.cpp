#include "AmbrelLocalization/SystemLocale.h"

#include <unicode/calendar.h>
#include <unicode/strenum.h>

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <mutex>
#include <utility>

namespace {

// Longer names are not languages and need not reach a tag parser.
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

/// Returns the locale of `tag`, or std::nullopt if it is not a language tag.
std::optional<icu::Locale> parsed(const std::string& tag) {
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale locale = icu::Locale::forLanguageTag(tag, status);
    return U_FAILURE(status) || locale.isBogus() ? std::nullopt : std::optional(std::move(locale));
}

/// Values derived from the locale name for dates; computing them at every lookup would be too expensive.
class Conventions {
public:
    explicit Conventions(std::string_view name) : posixName(name), tag_(SystemLocale::languageTag(name)) {
        if (const std::optional<icu::Locale> locale = tag_ ? parsed(*tag_) : std::nullopt) {
            region = locale->getCountry();
        }
    }

    /// Computed when first needed, with the first date: it requires data that nothing else loads.
    const std::string& calendar() const {
        std::call_once(calendarIsKnown_, [this] {
            const std::optional<icu::Locale> locale = parsed(tag_.value_or("und"));
            if (!locale) {
                return;
            }
            UErrorCode status = U_ZERO_ERROR;
            const std::unique_ptr<icu::StringEnumeration> names(
                icu::Calendar::getKeywordValuesForLocale("calendar", *locale, true, status));
            const char* first = names ? names->next(nullptr, status) : nullptr;
            if (U_SUCCESS(status) && first) {
                calendar_ = first;
            }
        });
        return calendar_;
    }

    const std::string posixName;
    std::string region;

private:
    std::optional<std::string> tag_;
    mutable std::once_flag calendarIsKnown_;
    mutable std::string calendar_ = "gregorian";
};

std::shared_ptr<const Conventions> currentConventions() {
    static std::mutex mutex;
    static std::shared_ptr<const Conventions> known;

    const std::string_view name = firstSet({"LC_ALL", "LC_TIME", "LANG"});
    const std::lock_guard lock(mutex);
    if (!known || known->posixName != name) {
        known = std::make_shared<const Conventions>(name);
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

std::string region() {
    return currentConventions()->region;
}

std::string calendar() {
    return currentConventions()->calendar();
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
