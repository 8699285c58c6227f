#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/SystemLocale.h"

#include <unicode/localebuilder.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace {

using Language = AmbrelInterfaceLanguage;

constexpr auto everyCase = []<std::size_t... index>(std::index_sequence<index...>) {
    return std::array{Language(static_cast<Language::Case>(index))...};
}
(std::make_index_sequence<Language::traditionalChinese + 1>());

struct Description {
    QString rawValue;
    QString autonym;
};

const Description& description(Language language) {
    static const std::array<Description, everyCase.size()> descriptions = {{
        {QStringLiteral("system"), QStringLiteral("System")},
        {QStringLiteral("en"), QStringLiteral("English")},
        {QStringLiteral("es"), QStringLiteral("Español")},
        {QStringLiteral("pt-BR"), QStringLiteral("Português (Brasil)")},
        {QStringLiteral("de"), QStringLiteral("Deutsch")},
        {QStringLiteral("fr"), QStringLiteral("Français")},
        {QStringLiteral("it"), QStringLiteral("Italiano")},
        {QStringLiteral("ja"), QStringLiteral("日本語")},
        {QStringLiteral("ko"), QStringLiteral("한국어")},
        {QStringLiteral("ru"), QStringLiteral("Русский")},
        {QStringLiteral("pl"), QStringLiteral("Polski")},
        {QStringLiteral("tr"), QStringLiteral("Türkçe")},
        {QStringLiteral("ar"), QStringLiteral("العربية")},
        {QStringLiteral("zh-Hans"), QStringLiteral("简体中文")},
        {QStringLiteral("zh-Hant"), QStringLiteral("繁體中文")},
    }};
    return descriptions[language.value()];
}

} // namespace

std::optional<AmbrelInterfaceLanguage> AmbrelInterfaceLanguage::fromRawValue(QStringView rawValue) {
    const auto found = std::ranges::find_if(
        everyCase, [rawValue](Language language) { return description(language).rawValue == rawValue; });
    return found == everyCase.end() ? std::nullopt : std::optional(*found);
}

AmbrelInterfaceLanguage AmbrelInterfaceLanguage::fromStoredValue(const std::optional<QString>& storedValue) {
    return storedValue ? fromRawValue(*storedValue).value_or(system) : system;
}

QString AmbrelInterfaceLanguage::rawValue() const {
    return description(*this).rawValue;
}

std::optional<QString> AmbrelInterfaceLanguage::localeIdentifier() const {
    return *this == system ? std::nullopt : std::optional(rawValue());
}

AmbrelInterfaceLanguage AmbrelInterfaceLanguage::shown() const {
    if (*this != system) {
        return *this;
    }
    return fromRawValue(AmbrelStrings::resolvedSystemLocaleIdentifier(SystemLocale::preferredLanguages()))
        .value_or(english);
}

icu::Locale AmbrelInterfaceLanguage::locale() const {
    const icu::Locale locale = icu::Locale::createFromName(shown().rawValue().toStdString().c_str());
    const std::string region = *this == system ? SystemLocale::region() : std::string();
    if (region.empty()) {
        return locale;
    }
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale regional = icu::LocaleBuilder().setLocale(locale).setRegion(region).build(status);
    return U_SUCCESS(status) ? regional : locale;
}

QString AmbrelInterfaceLanguage::autonym() const {
    return description(*this).autonym;
}

std::span<const AmbrelInterfaceLanguage> AmbrelInterfaceLanguage::allCases() {
    return everyCase;
}

std::span<const AmbrelInterfaceLanguage> AmbrelInterfaceLanguage::selectableLanguages() {
    return std::span(everyCase).subspan<1>();
}
