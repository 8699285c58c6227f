#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"

#include "AmbrelLocalization/SystemLocale.h"

#include <algorithm>
#include <array>

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

icu::Locale AmbrelInterfaceLanguage::locale() const {
    if (*this == system) {
        return SystemLocale::current();
    }
    static const std::array<icu::Locale, everyCase.size()> locales = [] {
        std::array<icu::Locale, everyCase.size()> made;
        for (const Language language : selectableLanguages()) {
            UErrorCode status = U_ZERO_ERROR;
            made[static_cast<std::size_t>(language.value())] =
                icu::Locale::forLanguageTag(language.rawValue().toStdString(), status);
        }
        return made;
    }();
    return locales[static_cast<std::size_t>(value_)];
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
