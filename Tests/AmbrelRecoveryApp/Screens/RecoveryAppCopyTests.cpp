#include "AmbrelRecoveryApp/RecoveryAppCopy.h"

#include "ExpectedAppCopy.h"
#include "ScreensTestSupport.h"

#include <gtest/gtest.h>

namespace {

icu::Locale locale(const char* identifier) {
    return icu::Locale(identifier);
}

TEST(RecoveryAppCopyTests, hasEveryTextInEveryLanguage) {
    for (const ExpectedAppCopy& expected : expectedAppCopy) {
        SCOPED_TRACE(expected.locale);
        const icu::Locale language(expected.locale);
        EXPECT_EQ(RecoveryAppCopy::noAccount(language), expected.noAccount.toString());
        EXPECT_EQ(RecoveryAppCopy::readOnly(language), expected.readOnly.toString());
        EXPECT_EQ(RecoveryAppCopy::okay(language), expected.okay.toString());
        EXPECT_EQ(RecoveryAppCopy::providerPreparationTitle(language), expected.providerPreparationTitle.toString());
        EXPECT_EQ(RecoveryAppCopy::providerPreparation(language), expected.providerPreparation.toString());
        EXPECT_EQ(RecoveryAppCopy::showInFinder(language), expected.showInFinder.toString());
        EXPECT_EQ(RecoveryAppCopy::capsLock(language), expected.capsLock.toString());
    }
}

TEST(RecoveryAppCopyTests, takesTraditionalChineseWhereverTheScriptIsNamed) {
    for (const char* identifier : {"zh-Hant-TW", "zh_Hant_HK", "ZH-HANT", "ja-Hant"}) {
        EXPECT_EQ(RecoveryAppCopy::languageIdentifier(locale(identifier)), QStringLiteral("zh-Hant")) << identifier;
    }
    EXPECT_EQ(RecoveryAppCopy::readOnly(locale("zh_Hant_HK")), QStringLiteral("唯讀"));
}

TEST(RecoveryAppCopyTests, takesSimplifiedChineseWhereverTheScriptIsNamed) {
    EXPECT_EQ(RecoveryAppCopy::languageIdentifier(locale("zh-Hans-CN")), QStringLiteral("zh-Hans"));
    EXPECT_EQ(RecoveryAppCopy::readOnly(locale("zh-Hans-CN")), QStringLiteral("只读"));
}

TEST(RecoveryAppCopyTests, isEnglishForChineseWithoutAScript) {
    EXPECT_EQ(RecoveryAppCopy::languageIdentifier(locale("zh_TW")), QStringLiteral("zh"));
    EXPECT_EQ(RecoveryAppCopy::noAccount(locale("zh_TW")), QStringLiteral("No account"));
}

TEST(RecoveryAppCopyTests, takesThePortugueseRowInEveryCountry) {
    for (const char* identifier : {"pt_PT", "pt_BR"}) {
        EXPECT_EQ(RecoveryAppCopy::noAccount(locale(identifier)), QStringLiteral("Sem conta"));
    }
}

TEST(RecoveryAppCopyTests, takesTheSpanishRowInMexico) {
    EXPECT_EQ(RecoveryAppCopy::noAccount(locale("es_MX")), QStringLiteral("Sin cuenta"));
}

TEST(RecoveryAppCopyTests, isEnglishForEveryOtherLanguage) {
    for (const char* identifier : {"en_AU", "nl_NL", "en"}) {
        EXPECT_EQ(RecoveryAppCopy::showInFinder(locale(identifier)), QStringLiteral("Show in Finder")) << identifier;
    }
}

TEST(RecoveryAppCopyTests, isEnglishForALocaleWithoutALanguage) {
    EXPECT_EQ(RecoveryAppCopy::languageIdentifier(icu::Locale::getRoot()), QStringLiteral("en"));
    EXPECT_EQ(RecoveryAppCopy::noAccount(icu::Locale::getRoot()), QStringLiteral("No account"));
}

TEST(RecoveryAppCopyTests, saysOKInTheLanguagesThatDoSo) {
    for (const char* identifier : {"de", "es", "pt_BR", "fr", "it", "pl"}) {
        EXPECT_EQ(RecoveryAppCopy::okay(locale(identifier)), QStringLiteral("OK")) << identifier;
    }
}

} // namespace
