#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/SystemLocale.h"

#include <unicode/localebuilder.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace {

using Language = AmbrelInterfaceLanguage;

constexpr std::array everyCase = {Language(Language::Case::system),
                                  Language(Language::Case::english),
                                  Language(Language::Case::spanish),
                                  Language(Language::Case::brazilianPortuguese),
                                  Language(Language::Case::german),
                                  Language(Language::Case::french),
                                  Language(Language::Case::italian),
                                  Language(Language::Case::japanese),
                                  Language(Language::Case::korean),
                                  Language(Language::Case::russian),
                                  Language(Language::Case::polish),
                                  Language(Language::Case::turkish),
                                  Language(Language::Case::arabic),
                                  Language(Language::Case::simplifiedChinese),
                                  Language(Language::Case::traditionalChinese)};

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
    return descriptions[static_cast<std::size_t>(language.value())];
}

/// `locale` with the region of the system's conventions, if one is set.
icu::Locale inSystemRegion(const icu::Locale& locale) {
    const std::string region = SystemLocale::region();
    if (region.empty()) {
        return locale;
    }
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale regional = icu::LocaleBuilder().setLocale(locale).setRegion(region).build(status);
    return U_SUCCESS(status) ? regional : locale;
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
    if (*this == system) {
        return inSystemRegion(shown().locale());
    }
    static const std::vector<icu::Locale> locales = [] {
        std::vector<icu::Locale> made;
        for (const Language language : selectableLanguages()) {
            made.push_back(icu::Locale::createFromName(language.rawValue().toStdString().c_str()));
        }
        return made;
    }();
    const std::size_t casesBeforeTheLanguages = everyCase.size() - locales.size();
    return locales[static_cast<std::size_t>(value_) - casesBeforeTheLanguages];
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
