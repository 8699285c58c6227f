#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"

#include "TestSupport.h"

#include <gmock/gmock.h>

#include <set>
#include <unordered_set>
#include <vector>

namespace {

using Language = AmbrelInterfaceLanguage;

struct Row {
    Language language;
    const char* rawValue;
    const char* autonym;
};

const std::vector<Row>& rows() {
    static const std::vector<Row> table = {
        {Language::system, "system", "System"},
        {Language::english, "en", "English"},
        {Language::spanish, "es", "Español"},
        {Language::brazilianPortuguese, "pt-BR", "Português (Brasil)"},
        {Language::german, "de", "Deutsch"},
        {Language::french, "fr", "Français"},
        {Language::italian, "it", "Italiano"},
        {Language::japanese, "ja", "日本語"},
        {Language::korean, "ko", "한국어"},
        {Language::russian, "ru", "Русский"},
        {Language::polish, "pl", "Polski"},
        {Language::turkish, "tr", "Türkçe"},
        {Language::arabic, "ar", "العربية"},
        {Language::simplifiedChinese, "zh-Hans", "简体中文"},
        {Language::traditionalChinese, "zh-Hant", "繁體中文"},
    };
    return table;
}

TEST(AmbrelInterfaceLanguageTest, listsItsCasesInOrderWithTheirTexts) {
    const auto cases = Language::allCases();
    ASSERT_EQ(cases.size(), rows().size());
    for (std::size_t index = 0; index < cases.size(); ++index) {
        const Row& row = rows()[index];
        EXPECT_EQ(cases[index], row.language);
        EXPECT_EQ(cases[index].rawValue(), QString::fromUtf8(row.rawValue));
        EXPECT_EQ(cases[index].id(), cases[index].rawValue());
        EXPECT_EQ(cases[index].autonym(), QString::fromUtf8(row.autonym));
    }
}

TEST(AmbrelInterfaceLanguageTest, hasALocaleIdentifierUnlessItIsSystem) {
    EXPECT_EQ(Language(Language::system).localeIdentifier(), std::nullopt);
    for (const Language language : Language::selectableLanguages()) {
        EXPECT_EQ(language.localeIdentifier(), language.rawValue());
    }
}

TEST(AmbrelInterfaceLanguageTest, offersFourteenLanguagesStartingWithEnglish) {
    const auto selectable = Language::selectableLanguages();
    EXPECT_EQ(selectable.size(), 14U);
    EXPECT_EQ(selectable.front(), Language::english);
    EXPECT_THAT(selectable, testing::Not(testing::Contains(Language::system)));
    EXPECT_EQ(selectable.data(), Language::selectableLanguages().data()) << "made once and shared";
}

TEST(AmbrelInterfaceLanguageTest, isRightToLeftOnlyForArabic) {
    for (const Language language : Language::allCases()) {
        EXPECT_EQ(language.isRightToLeft(), language == Language::arabic) << language.id().toStdString();
    }
}

TEST(AmbrelInterfaceLanguageTest, isFoundByItsExactRawValue) {
    for (const Language language : Language::allCases()) {
        EXPECT_EQ(Language::fromRawValue(language.rawValue()), language);
    }
    for (const char* other : {"", "EN", "pt", "pt_BR", "pt-br", "zh", "zh_Hant", "zh-hant", " en", "en ", "System"}) {
        EXPECT_EQ(Language::fromRawValue(QString::fromUtf8(other)), std::nullopt) << other;
    }
}

TEST(AmbrelInterfaceLanguageTest, isSystemIfNothingValidIsStored) {
    EXPECT_EQ(Language::fromStoredValue(std::nullopt), Language::system);
    EXPECT_EQ(Language::fromStoredValue(QString()), Language::system);
    EXPECT_EQ(Language::fromStoredValue(QStringLiteral("EN")), Language::system);
    EXPECT_EQ(Language::fromStoredValue(QStringLiteral("zh_Hant")), Language::system);
    EXPECT_EQ(Language::fromStoredValue(QStringLiteral("system")), Language::system);
    EXPECT_EQ(Language::fromStoredValue(QStringLiteral("zh-Hant")), Language::traditionalChinese);
}

TEST(AmbrelInterfaceLanguageTest, hasTheLocaleOfItsIdentifier) {
    EXPECT_STREQ(Language(Language::brazilianPortuguese).locale().getName(), "pt_BR");
    EXPECT_STREQ(Language(Language::traditionalChinese).locale().getName(), "zh_Hant");
    EXPECT_STREQ(Language(Language::japanese).locale().getName(), "ja");
}

TEST(AmbrelInterfaceLanguageTest, isShownAsItselfUnlessItIsSystem) {
    ScopedLocaleVariables variables;
    variables.set("LANG", "fr_CA.UTF-8");
    for (const Language language : Language::selectableLanguages()) {
        EXPECT_EQ(language.shown(), language);
    }
    EXPECT_EQ(Language(Language::system).shown(), Language::french);
    variables.set("LC_TIME", "de_DE.UTF-8");
    EXPECT_EQ(Language(Language::system).shown(), Language::french);
    variables.set("LANGUAGE", "nl:zh_TW:de");
    EXPECT_EQ(Language(Language::system).shown(), Language::traditionalChinese);
    variables.set("LANGUAGE", "nl");
    variables.set("LANG", "nl_NL.UTF-8");
    EXPECT_EQ(Language(Language::system).shown(), Language::english);
}

struct SystemSetting {
    const char* language;
    const char* messages;
    const char* time;
    const char* expected;
};

TEST(AmbrelInterfaceLanguageTest, hasTheShownLanguageInTheSystemsRegionIfItIsSystem) {
    const SystemSetting settings[] = {
        {"", "fr_CA.UTF-8", "fr_CA.UTF-8", "fr_CA"},
        {"", "de_DE.UTF-8", "en_GB.UTF-8", "de_GB"},
        {"de", "en_US.UTF-8", "en_US.UTF-8", "de_US"},
        {"", "pt_PT.UTF-8", "pt_PT.UTF-8", "pt_PT"},
        {"", "pt_PT.UTF-8", "C", "pt_BR"},
        {"", "de_AT.UTF-8", "C.UTF-8", "de"},
        {"", "nl_NL.UTF-8", "nl_NL.UTF-8", "en_NL"},
        {"", "C.UTF-8", "de_DE.UTF-8", "en_DE"},
        {"", "C", "C", "en"},
        {"", "sr_RS@latin", "sr_RS@latin", "en_RS"},
        {"", "zh_TW.UTF-8", "zh_TW.UTF-8", "zh_Hant_TW"},
        {"", "zh_CN.GB18030", "zh_CN.GB18030", "zh_Hans_CN"},
        {"", "zh_SG", "zh_SG", "zh_Hans_SG"},
        {"", "zh_CN", "zh_TW", "zh_Hans_TW"},
        {"zh-Hans-HK", "en_US", "zh_HK", "zh_Hant_HK"},
        {"", "es_419", "es_419", "es_419"},
    };
    ScopedLocaleVariables variables;
    for (const SystemSetting& setting : settings) {
        SCOPED_TRACE(std::string(setting.language) + " " + setting.messages + " " + setting.time);
        variables.set("LANGUAGE", setting.language);
        variables.set("LC_MESSAGES", setting.messages);
        variables.set("LC_TIME", setting.time);
        EXPECT_STREQ(Language(Language::system).locale().getName(), setting.expected);
    }
}

TEST(AmbrelInterfaceLanguageTest, comparesAndHashesByItsIdentifier) {
    std::set<QString> identifiers;
    std::unordered_set<Language> languages;
    for (const Language language : Language::allCases()) {
        identifiers.insert(language.id());
        languages.insert(language);
        languages.insert(*Language::fromRawValue(language.id()));
    }
    EXPECT_EQ(identifiers.size(), 15U);
    EXPECT_EQ(languages.size(), 15U);
}

} // namespace
