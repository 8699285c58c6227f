#include "AmbrelLocalization/SystemLocale.h"

#include <QByteArray>
#include <unicode/calendar.h>
#include <unicode/timezone.h>

#include <algorithm>
#include <initializer_list>
#include <memory>

namespace {

// Longer names are not languages and need not reach a tag parser.
constexpr std::size_t longestName = 100;

std::string firstSet(std::initializer_list<const char*> names) {
    for (const char* name : names) {
        if (!qEnvironmentVariableIsEmpty(name)) {
            return qgetenv(name).toStdString();
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

icu::Locale localeOfConventions() {
    return SystemLocale::localeOfTag(SystemLocale::languageTag(SystemLocale::conventions()).value_or("und"));
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
    for (const QByteArray& name : qgetenv("LANGUAGE").split(':')) {
        append(tags, name.toStdString());
    }
    append(tags, firstSet({"LC_ALL", "LC_MESSAGES", "LANG"}));
    return tags;
}

std::string conventions() {
    return firstSet({"LC_ALL", "LC_TIME", "LANG"});
}

std::string region() {
    return localeOfConventions().getCountry();
}

std::string calendar() {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Calendar> calendar(
        icu::Calendar::createInstance(*icu::TimeZone::getGMT(), localeOfConventions(), status));
    return U_SUCCESS(status) && calendar ? calendar->getType() : "gregorian";
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

icu::Locale localeOfTag(const std::string& tag) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale locale = icu::Locale::forLanguageTag(tag, status);
    return U_SUCCESS(status) && !locale.isBogus() ? locale : icu::Locale::getRoot();
}

} // namespace SystemLocale
