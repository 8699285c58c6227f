#include "AmbrelLocalization/SystemLocale.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

namespace {

TEST(LanguageTagTest, isMadeFromThePosixName) {
    EXPECT_EQ(SystemLocale::languageTag("de_DE.UTF-8@euro"), "de-DE");
    EXPECT_EQ(SystemLocale::languageTag("de_DE.UTF-8"), "de-DE");
    EXPECT_EQ(SystemLocale::languageTag("de_DE"), "de-DE");
    EXPECT_EQ(SystemLocale::languageTag("de"), "de");
    EXPECT_EQ(SystemLocale::languageTag("zh_TW.Big5"), "zh-TW");
    EXPECT_EQ(SystemLocale::languageTag("pt-BR"), "pt-BR");
}

TEST(LanguageTagTest, hasTheScriptOfTheModifier) {
    EXPECT_EQ(SystemLocale::languageTag("sr_RS@latin"), "sr-Latn-RS");
    EXPECT_EQ(SystemLocale::languageTag("uz_UZ.UTF-8@cyrillic"), "uz-Cyrl-UZ");
    EXPECT_EQ(SystemLocale::languageTag("sd_IN@devanagari"), "sd-Deva-IN");
    EXPECT_EQ(SystemLocale::languageTag("sr@latin"), "sr-Latn");
    EXPECT_EQ(SystemLocale::languageTag("ca_ES@valencia"), "ca-ES");
}

TEST(LanguageTagTest, isNoneForTheNamesWithoutALanguage) {
    for (const std::string_view name :
         {"", "C", "POSIX", "C.UTF-8", "C.utf8", "POSIX.UTF-8", "C@euro", ".UTF-8", "@x"}) {
        EXPECT_EQ(SystemLocale::languageTag(name), std::nullopt) << name;
    }
    EXPECT_EQ(SystemLocale::languageTag(std::string(100'000, 'a')), std::nullopt);
}

class SystemLocaleTest : public testing::Test {
protected:
    ScopedLocaleVariables variables_;
};

TEST_F(SystemLocaleTest, prefersNoLanguageIfNoneIsSet) {
    EXPECT_EQ(SystemLocale::preferredLanguages(), QStringList());
    variables_.set("LANG", "C.UTF-8");
    EXPECT_EQ(SystemLocale::preferredLanguages(), QStringList());
}

TEST_F(SystemLocaleTest, prefersTheListBeforeTheLocale) {
    variables_.set("LANGUAGE", "nl:zh_TW:C:pt_BR.UTF-8");
    variables_.set("LANG", "de_DE.UTF-8");
    const QStringList expected = {QStringLiteral("nl"), QStringLiteral("zh-TW"), QStringLiteral("pt-BR"),
                                  QStringLiteral("de-DE")};
    EXPECT_EQ(SystemLocale::preferredLanguages(), expected);
}

TEST_F(SystemLocaleTest, ignoresEmptyEntriesOfTheList) {
    variables_.set("LANGUAGE", "::de::");
    EXPECT_EQ(SystemLocale::preferredLanguages(), QStringList{QStringLiteral("de")});
    variables_.set("LANGUAGE", ":");
    EXPECT_EQ(SystemLocale::preferredLanguages(), QStringList());
}

TEST_F(SystemLocaleTest, takesTheLocaleOfMessagesFromTheFirstVariableThatIsSet) {
    variables_.set("LANG", "de_DE.UTF-8");
    EXPECT_EQ(SystemLocale::preferredLanguages(), QStringList{QStringLiteral("de-DE")});
    variables_.set("LC_MESSAGES", "fr_FR.UTF-8");
    EXPECT_EQ(SystemLocale::preferredLanguages(), QStringList{QStringLiteral("fr-FR")});
    variables_.set("LC_ALL", "it_IT.UTF-8");
    EXPECT_EQ(SystemLocale::preferredLanguages(), QStringList{QStringLiteral("it-IT")});
    variables_.set("LC_ALL", "");
    EXPECT_EQ(SystemLocale::preferredLanguages(), QStringList{QStringLiteral("fr-FR")});
    variables_.set("LC_ALL", "C");
    EXPECT_EQ(SystemLocale::preferredLanguages(), QStringList());
}

TEST_F(SystemLocaleTest, takesTheRegionFromTheFirstVariableThatIsSet) {
    variables_.set("LANG", "de_DE.UTF-8");
    EXPECT_EQ(SystemLocale::region(), "DE");
    variables_.set("LC_MESSAGES", "fr_FR.UTF-8");
    EXPECT_EQ(SystemLocale::region(), "DE");
    variables_.set("LC_TIME", "sr_RS@latin");
    EXPECT_EQ(SystemLocale::region(), "RS");
    variables_.set("LC_ALL", "es_419");
    EXPECT_EQ(SystemLocale::region(), "419");
}

TEST_F(SystemLocaleTest, hasNoRegionIfNoneIsNamed) {
    EXPECT_EQ(SystemLocale::region(), "");
    for (const char* name :
         {"C", "POSIX", "C.UTF-8", "", "%%%", "_", "1", "de-\xFF\xFE", "x-private", "de", "zh-Hant"}) {
        variables_.set("LANG", name);
        EXPECT_EQ(SystemLocale::region(), "") << name;
    }
}

TEST_F(SystemLocaleTest, hasTheCalendarOfTheCurrentLocale) {
    EXPECT_EQ(SystemLocale::calendar(), "gregorian");
    variables_.set("LC_TIME", "th_TH.UTF-8");
    EXPECT_EQ(SystemLocale::calendar(), "buddhist");
    variables_.set("LC_TIME", "fa_IR");
    EXPECT_EQ(SystemLocale::calendar(), "persian");
    variables_.set("LC_TIME", "de_DE");
    EXPECT_EQ(SystemLocale::calendar(), "gregorian");
}

} // namespace
