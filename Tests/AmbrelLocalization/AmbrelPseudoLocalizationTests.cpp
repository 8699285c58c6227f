#include "AmbrelLocalization/AmbrelPseudoLocalization.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

namespace {

QString expanded(const QString& text) {
    return AmbrelPseudoLocalization::expanded(text, AmbrelStrings::genericCancel());
}

TEST(PseudoLocalizationTest, bracketsAndMarksAText) {
    EXPECT_EQ(expanded(QStringLiteral("Open")), QStringLiteral("⟦Öþːëñː⟧"));
}

TEST(PseudoLocalizationTest, mapsEveryBasicLetter) {
    QString letters;
    QString result;
    const QString upper = QStringLiteral("ÅƁÇÐËƑĢĦÏĴĶĿṀÑÖÞǪŔŠŢÛṼŴẌŸŽ");
    const QString lower = QStringLiteral("åƀçðëƒģħïĵķŀṁñöþǫŕšţûṽŵẍÿž");
    ASSERT_EQ(upper.size(), 26);
    ASSERT_EQ(lower.size(), 26);
    for (char16_t index = 0; index < 26; ++index) {
        letters += QChar(u'A' + index);
        letters += QChar(u'a' + index);
        result += upper[index];
        result += lower[index];
        result += QChar(u'\u02D0');
    }
    EXPECT_EQ(expanded(letters), QStringLiteral("⟦") + result + QStringLiteral("⟧"));
}

TEST(PseudoLocalizationTest, mapsIrregularLettersByItsTable) {
    EXPECT_EQ(expanded(QStringLiteral("P")), QStringLiteral("⟦\u00DE⟧"));
    EXPECT_EQ(expanded(QStringLiteral("B")), QStringLiteral("⟦\u0181⟧"));
    EXPECT_EQ(expanded(QStringLiteral("b")), QStringLiteral("⟦\u0180⟧"));
    EXPECT_EQ(expanded(QStringLiteral("L")), QStringLiteral("⟦\u013F⟧"));
    EXPECT_EQ(expanded(QStringLiteral("l")), QStringLiteral("⟦\u0140⟧"));
    EXPECT_EQ(expanded(QStringLiteral("D")), QStringLiteral("⟦\u00D0⟧"));
}

TEST(PseudoLocalizationTest, leavesTheProductsNameAsItIs) {
    const QString name = QStringLiteral("Ambrel");
    EXPECT_EQ(AmbrelPseudoLocalization::expanded(name, AmbrelStrings::brandDisplayName()), name);
    EXPECT_EQ(AmbrelPseudoLocalization::expanded(QString(), AmbrelStrings::brandDisplayName()), QString());
}

TEST(PseudoLocalizationTest, leavesAnEmptyTextEmpty) {
    EXPECT_EQ(expanded(QString()), QString());
}

TEST(PseudoLocalizationTest, marksEverySecondLetter) {
    EXPECT_EQ(expanded(QStringLiteral("a")), QStringLiteral("⟦å⟧"));
    EXPECT_EQ(expanded(QStringLiteral("ab")), QStringLiteral("⟦åƀː⟧"));
    EXPECT_EQ(expanded(QStringLiteral("a b c")), QStringLiteral("⟦å ƀː ç⟧"));
}

TEST(PseudoLocalizationTest, addsNoMarksWithoutLetters) {
    EXPECT_EQ(expanded(QStringLiteral("12 34!?")), QStringLiteral("⟦12 34!?⟧"));
    EXPECT_EQ(expanded(QStringLiteral(" ")), QStringLiteral("⟦ ⟧"));
    EXPECT_EQ(expanded(QStringLiteral("😀👍")), QStringLiteral("⟦😀👍⟧"));
}

TEST(PseudoLocalizationTest, countsLettersOfEveryScript) {
    EXPECT_EQ(expanded(QStringLiteral("Привет")), QStringLiteral("⟦Прːивːетː⟧"));
    EXPECT_EQ(expanded(QStringLiteral("سلام")), QStringLiteral("⟦سلːامː⟧"));
    EXPECT_EQ(expanded(QStringLiteral("日本語")), QStringLiteral("⟦日本ː語⟧"));
    EXPECT_EQ(expanded(QStringLiteral("𐐀𐐀")), QStringLiteral("⟦𐐀𐐀ː⟧")) << "outside the basic plane";
}

TEST(PseudoLocalizationTest, countsALetterWithCombiningMarksAsOne) {
    EXPECT_EQ(expanded(QStringLiteral("éé")), QStringLiteral("⟦ééː⟧"));
    EXPECT_EQ(expanded(QStringLiteral("e\u0301e\u0301")), QStringLiteral("⟦e\u0301e\u0301ː⟧"));
    EXPECT_EQ(expanded(QStringLiteral("\u1100\u1161\u11A8x")), QStringLiteral("⟦\u1100\u1161\u11A8ẍː⟧"))
        << "one syllable";
}

TEST(PseudoLocalizationTest, keepsATextThatIsNotWellFormed) {
    const QString halves = QString(QChar(u'\xDC00')) + QChar(u'\xD800');
    EXPECT_EQ(expanded(halves + u'a'), QStringLiteral("⟦") + halves + QStringLiteral("å⟧"));
}

TEST(PseudoLocalizationTest, expandsPlaceholdersToo) {
    EXPECT_EQ(expanded(QStringLiteral("%lld")), QStringLiteral("⟦%ŀŀːð⟧"));
}

} // namespace
