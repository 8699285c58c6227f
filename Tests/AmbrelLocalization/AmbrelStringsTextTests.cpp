#include "AmbrelLocalization/AmbrelStrings.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

namespace {

QString capitalized(const QString& text, const char* locale = "en") {
    return AmbrelStrings::sentenceInitialCapitalized(text, icu::Locale(locale));
}

TEST(SentenceInitialTest, isCapitalizedAndTheRestLeftAsItIs) {
    EXPECT_EQ(capitalized(QStringLiteral("zero kB")), QStringLiteral("Zero kB"));
    EXPECT_EQ(capitalized(QStringLiteral("mIXED Case")), QStringLiteral("MIXED Case"));
    EXPECT_EQ(capitalized(QStringLiteral("Already")), QStringLiteral("Already"));
    EXPECT_EQ(capitalized(QStringLiteral("1 item")), QStringLiteral("1 item"));
    EXPECT_EQ(capitalized(QStringLiteral(" space")), QStringLiteral(" space"));
}

TEST(SentenceInitialTest, isCapitalizedByTheRulesOfTheLanguage) {
    EXPECT_EQ(capitalized(QStringLiteral("istanbul"), "tr"), QStringLiteral("İstanbul"));
    EXPECT_EQ(capitalized(QStringLiteral("ılık"), "tr"), QStringLiteral("Ilık"));
    EXPECT_EQ(capitalized(QStringLiteral("istanbul"), "en"), QStringLiteral("Istanbul"));
    EXPECT_EQ(capitalized(QStringLiteral("ёлка"), "ru"), QStringLiteral("Ёлка"));
    EXPECT_EQ(capitalized(QStringLiteral("日本"), "ja"), QStringLiteral("日本"));
}

TEST(SentenceInitialTest, isAWholeUserPerceivedCharacter) {
    EXPECT_EQ(capitalized(QStringLiteral("e\u0301tat")), QStringLiteral("E\u0301tat"));
    EXPECT_EQ(capitalized(QStringLiteral("ßa")), QStringLiteral("SSa"));
    EXPECT_EQ(capitalized(QStringLiteral("𐐨𐐨")), QStringLiteral("𐐀𐐨")) << "outside the basic plane";
    EXPECT_EQ(capitalized(QStringLiteral("👩‍👧 a")), QStringLiteral("👩‍👧 a"));
}

TEST(SentenceInitialTest, ofAnEmptyTextIsEmpty) {
    EXPECT_EQ(capitalized(QString()), QString());
    EXPECT_EQ(capitalized(QStringLiteral("")), QString());
    EXPECT_EQ(capitalized(QString(), "tr"), QString());
}

TEST(SentenceInitialTest, mayBeALoneSurrogate) {
    const QString lone(QChar(u'\xD800'));
    EXPECT_EQ(capitalized(lone + u'a'), lone + u'a');
}

} // namespace
