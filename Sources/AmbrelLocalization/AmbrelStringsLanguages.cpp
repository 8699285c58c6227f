#include "AmbrelLocalization/AmbrelInterfaceLanguagePreferenceStore.h"
#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/AmbrelUserDefaults.h"
#include "AmbrelLocalization/SystemLocale.h"

#include <string_view>

namespace AmbrelStrings {

namespace {

/// The locale of a tag, or the root locale if the tag is invalid or its language code does not have two letters.
icu::Locale parsedTag(QString tag) {
    constexpr qsizetype longestTag = 100;
    tag.replace(u'_', u'-');
    // Only two-letter codes can match, but the parser would shorten equivalent longer codes.
    const bool hasTwoLetters = (tag + u'-').indexOf(u'-') == 2;
    return hasTwoLetters && tag.size() <= longestTag ? SystemLocale::localeOfTag(tag.toStdString())
                                                     : icu::Locale::getRoot();
}

QString chineseLocaleIdentifier(const icu::Locale& locale) {
    const std::string_view script = locale.getScript();
    const std::string_view region = locale.getCountry();
    // The region takes precedence even if the script is Simplified: zh-Hans-HK is shown in Traditional Chinese.
    const bool isTraditional = script == "Hant" || region == "HK" || region == "MO" || region == "TW";
    return isTraditional ? QStringLiteral("zh-Hant") : QStringLiteral("zh-Hans");
}

} // namespace

QString sourceLocaleIdentifier() {
    return QStringLiteral("en");
}

const QStringList& launchLocaleIdentifiers() {
    static const QStringList identifiers = [] {
        QStringList list;
        for (const AmbrelInterfaceLanguage language : AmbrelInterfaceLanguage::selectableLanguages()) {
            list.append(language.rawValue());
        }
        return list;
    }();
    return identifiers;
}

const QStringList& completeLocaleIdentifiers() {
    return launchLocaleIdentifiers();
}

const QStringList& humanReviewedLocaleIdentifiers() {
    static const QStringList identifiers = {sourceLocaleIdentifier()};
    return identifiers;
}

AmbrelInterfaceLanguage currentInterfaceLanguage() {
    return AmbrelInterfaceLanguagePreferenceStore(AmbrelUserDefaults::standard(),
                                                  AmbrelInterfaceLanguagePreferenceStore::defaultStorageKey())
        .load();
}

QString resolvedSystemLocaleIdentifier(const QStringList& preferredLanguages) {
    for (const QString& tag : preferredLanguages) {
        const icu::Locale locale = parsedTag(tag);
        QString code = QString::fromLatin1(locale.getLanguage());
        if (code == QStringLiteral("zh")) {
            return chineseLocaleIdentifier(locale);
        }
        if (code == QStringLiteral("pt")) {
            return QStringLiteral("pt-BR");
        }
        if (launchLocaleIdentifiers().contains(code)) {
            return code;
        }
    }
    return sourceLocaleIdentifier();
}

} // namespace AmbrelStrings
