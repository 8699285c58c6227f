#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"

#include "../../AmbrelLocalization/AvoidedTerms.h"
#include "../../AmbrelLocalization/TextFaults.h"
#include "../Support/TestEnvironment.h"
#include "AmbrelLocalization/AmbrelStrings.h"
#include "ExpectedAppCopy.h"
#include "Support/ScopedEnvironment.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <vector>

namespace {

using RecoveryAppCopy::Text;

icu::Locale locale(const char* identifier) {
    return icu::Locale(identifier);
}

QString shownIn(const QString& language, Text text) {
    return RecoveryAppCopy::text(text, locale(language.toStdString().c_str()));
}

std::vector<Text> everyText() {
    std::vector<Text> texts;
    for (std::size_t number = 0; number < RecoveryAppCopy::textCount; ++number) {
        texts.push_back(static_cast<Text>(number));
    }
    return texts;
}

TEST(RecoveryAppCopyTest, hasEveryTextInEveryLanguage) {
    for (const ExpectedAppCopy& expected : expectedAppCopy) {
        SCOPED_TRACE(expected.locale);
        const icu::Locale language(expected.locale);
        EXPECT_EQ(RecoveryAppCopy::noAccount(language), expected.noAccount.toString());
        EXPECT_EQ(RecoveryAppCopy::readOnly(language), expected.readOnly.toString());
        EXPECT_EQ(RecoveryAppCopy::okay(language), expected.okay.toString());
        EXPECT_EQ(RecoveryAppCopy::providerPreparationTitle(language), expected.providerPreparationTitle.toString());
        EXPECT_EQ(RecoveryAppCopy::providerPreparation(language), expected.providerPreparation.toString());
        EXPECT_EQ(RecoveryAppCopy::showInFinder(language), expected.showInFinder.toString());
        EXPECT_EQ(RecoveryAppCopy::text(Text::capsLock, language), expected.capsLock.toString());
        EXPECT_EQ(RecoveryAppCopy::text(Text::stepCompleted, language), expected.stepCompleted.toString());
        EXPECT_EQ(RecoveryAppCopy::text(Text::chooseOrDrop, language), expected.chooseOrDrop.toString());
        EXPECT_EQ(RecoveryAppCopy::text(Text::noSnapshots, language), expected.noSnapshots.toString());
    }
}

TEST(RecoveryAppCopyTest, isInTheLanguageOfTheCatalogueWhateverTheDateLocale) {
    const ScopedEnvironment all("LC_ALL", std::nullopt);
    const ScopedEnvironment messages("LC_MESSAGES", std::nullopt);
    const std::array<const char*, 3> settings[] = {
        {"", "de_DE.UTF-8", "en_GB.UTF-8"}, {"de", "en_US.UTF-8", "en_US.UTF-8"}, {"nl:de", "nl_NL", "zh_TW"}};
    for (const auto& [list, locale, dates] : settings) {
        SCOPED_TRACE(locale);
        const ScopedEnvironment language("LANGUAGE", list);
        const ScopedEnvironment lang("LANG", locale);
        const ScopedEnvironment time("LC_TIME", dates);
        EXPECT_EQ(AmbrelStrings::localized(AmbrelStrings::genericCancel()), QStringLiteral("Abbrechen"));
        EXPECT_EQ(RecoveryAppCopy::noAccount(AmbrelStrings::currentFormattingLocale()), QStringLiteral("Kein Konto"));
    }
    const ScopedEnvironment language("LANGUAGE", "zh-Hans-HK");
    EXPECT_EQ(RecoveryAppCopy::readOnly(AmbrelStrings::currentFormattingLocale()), QStringLiteral("唯讀"));
}

TEST(RecoveryAppCopyTest, isTypesetByTheRulesOfItsLanguage) {
    for (const QString& language : AmbrelStrings::launchLocaleIdentifiers()) {
        const std::string locale = language.toStdString();
        for (const Text text : everyText()) {
            QString shown = shownIn(language, text);
            EXPECT_EQ(shown, shown.trimmed());
            if (locale == "fr") {
                // The fixed text has an ordinary space there, and keeps it.
                shown.replace(QStringLiteral("en ligne ;"), QStringLiteral("en ligne\u00A0;"));
            }
            EXPECT_THAT(textFaults(locale, shown), testing::IsEmpty()) << shown.toStdString();
            const std::set<UScriptCode> used = scripts(shown);
            const bool hasOwn = std::ranges::any_of(scriptsOfLocale(locale),
                                                    [&used](UScriptCode script) { return used.contains(script); });
            EXPECT_TRUE(hasOwn || shown == QStringLiteral("OK")) << shown.toStdString();
        }
    }
}

TEST(RecoveryAppCopyTest, isTranslated) {
    for (const QString& language : AmbrelStrings::launchLocaleIdentifiers()) {
        for (const Text text : everyText()) {
            const QString shown = shownIn(language, text);
            const bool isEnglish = shown == shownIn(QStringLiteral("en"), text);
            const bool isLoanword = text == Text::computer && (language == u"de" || language == u"it");
            EXPECT_TRUE(isEnglish == (language == u"en" || isLoanword) || shown == QStringLiteral("OK"))
                << language.toStdString() << ": " << shown.toStdString();
        }
    }
}

TEST(RecoveryAppCopyTest, hasNoTermThatThePageOfItsLanguageAvoids) {
    for (const QString& language : AmbrelStrings::launchLocaleIdentifiers()) {
        const QStringList avoided = avoidedTerms(language.toStdString());
        EXPECT_NE(avoided.isEmpty(), language != u"en") << language.toStdString();
        for (const Text text : everyText()) {
            EXPECT_THAT(avoidedTermsIn(shownIn(language, text), avoided), testing::IsEmpty()) << language.toStdString();
        }
    }
}

TEST(RecoveryAppCopyTest, doesNotUseTheWordOfTheDoneButtonForACompletedStep) {
    for (const ExpectedAppCopy& expected : expectedAppCopy) {
        const ScopedLanguage language(expected.locale, "en_US.UTF-8");
        EXPECT_NE(RecoveryAppCopy::localized(Text::stepCompleted),
                  AmbrelStrings::localized(AmbrelStrings::selectionDone()))
            << expected.locale;
    }
}

TEST(RecoveryAppCopyTest, isTraditionalChineseIfThatScriptIsNamed) {
    for (const char* identifier : {"zh-Hant-TW", "zh_Hant_HK", "ZH-HANT", "ja-Hant"}) {
        EXPECT_EQ(RecoveryAppCopy::languageIdentifier(locale(identifier)), QStringLiteral("zh-Hant")) << identifier;
    }
    EXPECT_EQ(RecoveryAppCopy::readOnly(locale("zh_Hant_HK")), QStringLiteral("唯讀"));
}

TEST(RecoveryAppCopyTest, isSimplifiedChineseIfThatScriptIsNamed) {
    EXPECT_EQ(RecoveryAppCopy::languageIdentifier(locale("zh-Hans-CN")), QStringLiteral("zh-Hans"));
    EXPECT_EQ(RecoveryAppCopy::readOnly(locale("zh-Hans-CN")), QStringLiteral("只读"));
}

TEST(RecoveryAppCopyTest, isEnglishForChineseWithoutAScript) {
    EXPECT_EQ(RecoveryAppCopy::languageIdentifier(locale("zh_TW")), QStringLiteral("zh"));
    EXPECT_EQ(RecoveryAppCopy::noAccount(locale("zh_TW")), QStringLiteral("No account"));
}

TEST(RecoveryAppCopyTest, isPortugueseInEveryCountry) {
    for (const char* identifier : {"pt_PT", "pt_BR"}) {
        EXPECT_EQ(RecoveryAppCopy::noAccount(locale(identifier)), QStringLiteral("Sem conta"));
    }
}

TEST(RecoveryAppCopyTest, isSpanishInMexico) {
    EXPECT_EQ(RecoveryAppCopy::noAccount(locale("es_MX")), QStringLiteral("Sin cuenta"));
}

TEST(RecoveryAppCopyTest, isEnglishForEveryOtherLanguage) {
    for (const char* identifier : {"en_AU", "nl_NL", "en"}) {
        EXPECT_EQ(RecoveryAppCopy::showInFinder(locale(identifier)), QStringLiteral("Show in Finder")) << identifier;
    }
}

TEST(RecoveryAppCopyTest, isEnglishForALocaleWithoutALanguage) {
    EXPECT_EQ(RecoveryAppCopy::languageIdentifier(icu::Locale::getRoot()), QStringLiteral("en"));
    EXPECT_EQ(RecoveryAppCopy::noAccount(icu::Locale::getRoot()), QStringLiteral("No account"));
}

TEST(RecoveryAppCopyTest, saysOKInTheLanguagesThatDoSo) {
    for (const char* identifier : {"de", "es", "pt_BR", "fr", "it", "pl"}) {
        EXPECT_EQ(RecoveryAppCopy::okay(locale(identifier)), QStringLiteral("OK")) << identifier;
    }
}

} // namespace
