#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"
#include "AmbrelLocalization/AmbrelStrings.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

QString size(std::int64_t byteCount, AmbrelInterfaceLanguage language = AmbrelInterfaceLanguage::english) {
    return AmbrelStrings::formattedFileSize(byteCount, language.locale());
}

TEST(FormattedFileSizeTest, isInDecimalMultiples) {
    EXPECT_EQ(size(1), QStringLiteral("1 byte"));
    EXPECT_EQ(size(999), QStringLiteral("999 bytes"));
    EXPECT_EQ(size(1'000), QStringLiteral("1 kB"));
    EXPECT_EQ(size(22'300), QStringLiteral("22 kB"));
    EXPECT_EQ(size(1'500'000), QStringLiteral("1.5 MB"));
    EXPECT_EQ(size(2'000'000), QStringLiteral("2 MB"));
    EXPECT_EQ(size(18'400'000'000), QStringLiteral("18.4 GB"));
    EXPECT_EQ(size(18'456'000'000), QStringLiteral("18.46 GB"));
    EXPECT_EQ(size(3'000'000'000'000), QStringLiteral("3 TB"));
    EXPECT_EQ(size(4'250'000'000'000'000), QStringLiteral("4.25 PB"));
    EXPECT_EQ(size(std::numeric_limits<std::int64_t>::max()), QStringLiteral("9,223.37 PB"));
}

TEST(FormattedFileSizeTest, isRoundedHalfToEven) {
    EXPECT_EQ(size(1'500), QStringLiteral("2 kB"));
    EXPECT_EQ(size(2'500), QStringLiteral("2 kB"));
    EXPECT_EQ(size(2'501), QStringLiteral("3 kB"));
    EXPECT_EQ(size(1'250'000), QStringLiteral("1.2 MB"));
    EXPECT_EQ(size(1'250'001), QStringLiteral("1.3 MB"));
}

TEST(FormattedFileSizeTest, neverShowsAThousandOfAUnit) {
    EXPECT_EQ(size(999'499), QStringLiteral("999 kB"));
    EXPECT_EQ(size(999'500), QStringLiteral("1 MB"));
    EXPECT_EQ(size(999'949'999), QStringLiteral("999.9 MB"));
    EXPECT_EQ(size(999'950'000), QStringLiteral("1 GB"));
    EXPECT_EQ(size(999'994'999'999), QStringLiteral("999.99 GB"));
    EXPECT_EQ(size(999'995'000'000), QStringLiteral("1 TB"));
}

TEST(FormattedFileSizeTest, hasASignIfItIsNegative) {
    EXPECT_EQ(size(-1'500'000), QStringLiteral("-1.5 MB"));
    EXPECT_EQ(size(std::numeric_limits<std::int64_t>::min()), QStringLiteral("-9,223.37 PB"));
}

TEST(FormattedFileSizeTest, ofZeroIsAWord) {
    EXPECT_EQ(size(0), QStringLiteral("Zero kB"));
    EXPECT_EQ(size(0, AmbrelInterfaceLanguage::german), QStringLiteral("Null kB"));
    EXPECT_EQ(size(0, AmbrelInterfaceLanguage::french), QStringLiteral("Zéro\u202Fko"));
    EXPECT_EQ(size(0, AmbrelInterfaceLanguage::turkish), QStringLiteral("Sıfır kB"));
    EXPECT_EQ(size(0, AmbrelInterfaceLanguage::simplifiedChinese), QStringLiteral("零 kB"));
    for (const AmbrelInterfaceLanguage language : AmbrelInterfaceLanguage::selectableLanguages()) {
        for (const QChar character : size(0, language)) {
            EXPECT_FALSE(character.isDigit()) << language.id().toStdString();
        }
    }
}

TEST(FormattedFileSizeTest, hasTheUnitsAndDigitsOfTheLanguage) {
    EXPECT_EQ(size(18'400'000'000, AmbrelInterfaceLanguage::german), QStringLiteral("18,4\u00A0GB"));
    EXPECT_EQ(size(18'400'000'000, AmbrelInterfaceLanguage::french), QStringLiteral("18,4\u202FGo"));
    EXPECT_EQ(size(18'400'000'000, AmbrelInterfaceLanguage::russian), QStringLiteral("18,4 ГБ"));
    // What the digits of Arabic are depends on the region.
    EXPECT_EQ(AmbrelStrings::formattedFileSize(18'400'000'000, icu::Locale("ar_EG")), QStringLiteral("١٨٫٤ غ.ب"));
    EXPECT_EQ(size(999, AmbrelInterfaceLanguage::polish), QStringLiteral("999 bajtów"));
}

TEST(FormattedFileSizeTest, isShownForAnyLocale) {
    EXPECT_FALSE(AmbrelStrings::formattedFileSize(0, icu::Locale("xx_YY")).isEmpty());
    EXPECT_FALSE(AmbrelStrings::formattedFileSize(1'500'000, icu::Locale::getRoot()).isEmpty());
}

} // namespace
