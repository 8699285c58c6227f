#include "AmbrelLocalization/AmbrelStrings.h"
#include "TestSupport.h"

#include <gmock/gmock.h>

#include <ostream>

namespace {

QString resolved(const QStringList& preferredLanguages) {
    return AmbrelStrings::resolvedSystemLocaleIdentifier(preferredLanguages);
}

TEST(LocaleListsTest, areInTheOrderOfTheLanguages) {
    const QStringList all = {QStringLiteral("en"),      QStringLiteral("es"),     QStringLiteral("pt-BR"),
                             QStringLiteral("de"),      QStringLiteral("fr"),     QStringLiteral("it"),
                             QStringLiteral("ja"),      QStringLiteral("ko"),     QStringLiteral("ru"),
                             QStringLiteral("pl"),      QStringLiteral("tr"),     QStringLiteral("ar"),
                             QStringLiteral("zh-Hans"), QStringLiteral("zh-Hant")};
    EXPECT_EQ(AmbrelStrings::launchLocaleIdentifiers(), all);
    EXPECT_EQ(AmbrelStrings::completeLocaleIdentifiers(), all);
    EXPECT_EQ(AmbrelStrings::humanReviewedLocaleIdentifiers(), QStringList{QStringLiteral("en")});
    EXPECT_EQ(AmbrelStrings::sourceLocaleIdentifier(), QStringLiteral("en"));
}

struct Case {
    const char* preferred; // separated by commas
    const char* expected;
};

// GoogleTest shows parameters through this.
void PrintTo(const Case& example, std::ostream* stream) {
    *stream << '"' << example.preferred << "\" gives " << example.expected;
}

class PreferredLanguagesTest : public testing::TestWithParam<Case> {};

TEST_P(PreferredLanguagesTest, resolveToOneLanguageOfTheCatalogue) {
    const QStringList preferred = QString::fromUtf8(GetParam().preferred).split(u',', Qt::SkipEmptyParts);
    EXPECT_EQ(resolved(preferred), QString::fromUtf8(GetParam().expected)) << GetParam().preferred;
}

INSTANTIATE_TEST_SUITE_P(Fallback, PreferredLanguagesTest,
                         testing::Values(Case{"", "en"}, Case{"xx", "en"}, Case{"nl", "en"}, Case{"nl,da,sv", "en"}));

INSTANTIATE_TEST_SUITE_P(FirstMatch, PreferredLanguagesTest,
                         testing::Values(Case{"en-GB", "en"}, Case{"ja-JP", "ja"}, Case{"xx,fr-CA", "fr"},
                                         Case{"nl,de", "de"}, Case{"de,fr", "de"}, Case{"es-419", "es"},
                                         Case{"EN-us", "en"}, Case{"ar-SA-u-nu-latn", "ar"}, Case{"tr-TR", "tr"},
                                         Case{"ru-Latn-RU", "ru"}, Case{"de_AT", "de"}));

INSTANTIATE_TEST_SUITE_P(Portuguese, PreferredLanguagesTest,
                         testing::Values(Case{"pt", "pt-BR"}, Case{"pt-PT", "pt-BR"}, Case{"pt-BR", "pt-BR"},
                                         Case{"pt-AO,de", "pt-BR"}, Case{"xx,pt-PT", "pt-BR"}));

INSTANTIATE_TEST_SUITE_P(Chinese, PreferredLanguagesTest,
                         testing::Values(Case{"zh", "zh-Hans"}, Case{"zh-CN", "zh-Hans"}, Case{"zh-SG", "zh-Hans"},
                                         Case{"zh-Hans", "zh-Hans"}, Case{"zh-Hans-CN", "zh-Hans"},
                                         Case{"zh-TW", "zh-Hant"}, Case{"zh-HK", "zh-Hant"}, Case{"zh-MO", "zh-Hant"},
                                         Case{"zh-Hant", "zh-Hant"}, Case{"zh-Hant-CN", "zh-Hant"},
                                         Case{"zh-Hant-TW", "zh-Hant"}, Case{"zh-Hans-HK", "zh-Hant"},
                                         Case{"zh-Hans-MO", "zh-Hant"}, Case{"zh-Hans-TW", "zh-Hant"},
                                         Case{"zh-Latn-TW", "zh-Hant"}, Case{"zh-Latn", "zh-Hans"},
                                         Case{"nl,zh-TW,en", "zh-Hant"}, Case{"zh,en", "zh-Hans"}));

INSTANTIATE_TEST_SUITE_P(Malformed, PreferredLanguagesTest,
                         testing::Values(Case{"-,fr", "fr"}, Case{"---,fr", "fr"}, Case{" ,fr", "fr"},
                                         Case{"%$§,fr", "fr"}, Case{"日本語,fr", "fr"}, Case{"und-Latn,fr", "fr"},
                                         Case{"x-private,fr", "fr"}, Case{"1234,fr", "fr"}, Case{"*,fr", "fr"},
                                         Case{"i-klingon,fr", "fr"}, Case{"abcdefghijkl,fr", "fr"}));

// They are the same languages, but tags have the shorter code where there is one.
INSTANTIATE_TEST_SUITE_P(ThreeLetters, PreferredLanguagesTest,
                         testing::Values(Case{"deu", "en"}, Case{"deu-DE,fr", "fr"}, Case{"eng,fr", "fr"},
                                         Case{"por-PT,fr", "fr"}, Case{"zho-TW,fr", "fr"}, Case{"cmn-Hant,fr", "fr"},
                                         Case{"jpn,deu,it-IT", "it"}));

TEST(PreferredLanguageTagsTest, mayBeEmptyOrVeryLong) {
    EXPECT_EQ(resolved({QString(), QStringLiteral("fr")}), QStringLiteral("fr"));
    const QString longTag = QStringLiteral("de-") + QString(1'000'000, u'a');
    EXPECT_EQ(resolved({longTag, QStringLiteral("fr")}), QStringLiteral("fr"));
    const QString nulls(5, QChar(u'\0'));
    EXPECT_EQ(resolved({nulls, QStringLiteral("fr")}), QStringLiteral("fr"));
    EXPECT_EQ(resolved(QStringList(100'000, QStringLiteral("nl"))), QStringLiteral("en"));
}

TEST(PreferredLanguageTagsTest, alwaysResolveToALanguageOfTheCatalogue) {
    for (const char* tag : {"zh-Hant-HK-u-ca-roc", "pt-Latn-PT-x-a", "EN", "Fr-fr", "de-1996", "sr-Latn"}) {
        EXPECT_THAT(AmbrelStrings::launchLocaleIdentifiers(), testing::Contains(resolved({QString::fromUtf8(tag)})));
    }
}

} // namespace
