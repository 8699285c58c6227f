#include "AmbrelLocalization/AmbrelStrings.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using AmbrelStrings::formattedNumber;
using AmbrelStrings::formattedPercent;
using AmbrelStrings::formattedProgress;

icu::Locale locale(const char* identifier) {
    UErrorCode status = U_ZERO_ERROR;
    return icu::Locale::forLanguageTag(identifier, status);
}

TEST(FormattedNumberTest, isGroupedByTheRulesOfTheLanguage) {
    EXPECT_EQ(formattedNumber(1'200'000, locale("en")), QStringLiteral("1,200,000"));
    EXPECT_EQ(formattedNumber(1'200'000, locale("de")), QStringLiteral("1.200.000"));
    EXPECT_EQ(formattedNumber(1'200'000, locale("fr")), QStringLiteral("1\u202F200\u202F000"));
    EXPECT_EQ(formattedNumber(4'812, locale("ar-EG")), QStringLiteral("٤٬٨١٢"));
    EXPECT_EQ(formattedNumber(1'200'000, locale("hi-IN")), QStringLiteral("12,00,000"));
}

TEST(FormattedNumberTest, hasNoSignUnlessItIsNegative) {
    EXPECT_EQ(formattedNumber(0, locale("en")), QStringLiteral("0"));
    EXPECT_EQ(formattedNumber(7, locale("en")), QStringLiteral("7"));
    EXPECT_EQ(formattedNumber(-1'234, locale("en")), QStringLiteral("-1,234"));
}

TEST(FormattedNumberTest, takesEveryIntegerType) {
    EXPECT_EQ(formattedNumber(std::numeric_limits<std::int64_t>::min(), locale("en")),
              QStringLiteral("-9,223,372,036,854,775,808"));
    EXPECT_EQ(formattedNumber(std::numeric_limits<std::uint64_t>::max(), locale("en")),
              QStringLiteral("18,446,744,073,709,551,615"));
    EXPECT_EQ(formattedNumber(static_cast<std::int8_t>(-128), locale("en")), QStringLiteral("-128"));
    EXPECT_EQ(formattedNumber(static_cast<std::uint8_t>(200), locale("en")), QStringLiteral("200"));
    EXPECT_EQ(formattedNumber(static_cast<unsigned short>(1000), locale("en")), QStringLiteral("1,000"));
    EXPECT_EQ(formattedNumber(qint64{1000}, locale("en")), QStringLiteral("1,000"));
    EXPECT_EQ(formattedNumber(std::size_t{1000}, locale("en")), QStringLiteral("1,000"));
}

TEST(FormattedNumberTest, isShownForAnyLocale) {
    EXPECT_EQ(formattedNumber(12, icu::Locale::getRoot()), QStringLiteral("12"));
    EXPECT_EQ(formattedNumber(12, icu::Locale("xx_YY")), QStringLiteral("12"));
    icu::Locale bogus;
    bogus.setToBogus();
    EXPECT_EQ(formattedNumber(12, bogus), QStringLiteral("12"));
}

TEST(FormattedProgressTest, keepsItsSeparatorInEveryLanguage) {
    EXPECT_EQ(formattedProgress(3, 10, locale("en")), QStringLiteral("3 / 10"));
    EXPECT_EQ(formattedProgress(3, 10, locale("ar-EG")), QStringLiteral("٣ / ١٠"));
    EXPECT_EQ(formattedProgress(1'000, std::uint64_t{20'000}, locale("de")), QStringLiteral("1.000 / 20.000"));
    EXPECT_EQ(formattedProgress(-1, 0U, locale("ja")), QStringLiteral("-1 / 0"));
}

TEST(FormattedPercentTest, hasNoFractionDigits) {
    EXPECT_EQ(formattedPercent(0.42, locale("en")), QStringLiteral("42%"));
    EXPECT_EQ(formattedPercent(0.426, locale("en")), QStringLiteral("43%"));
    EXPECT_EQ(formattedPercent(0, locale("en")), QStringLiteral("0%"));
    EXPECT_EQ(formattedPercent(1, locale("en")), QStringLiteral("100%"));
}

TEST(FormattedPercentTest, isInTheFormOfTheLanguage) {
    EXPECT_EQ(formattedPercent(0.42, locale("de")), QStringLiteral("42\u00A0%"));
    EXPECT_EQ(formattedPercent(0.42, locale("tr")), QStringLiteral("%42"));
    EXPECT_TRUE(formattedPercent(0.42, locale("ar-EG")).startsWith(QStringLiteral("٤٢٪")));
}

TEST(FormattedPercentTest, isNotClamped) {
    EXPECT_EQ(formattedPercent(1.5, locale("en")), QStringLiteral("150%"));
    EXPECT_EQ(formattedPercent(-0.05, locale("en")), QStringLiteral("-5%"));
    EXPECT_FALSE(formattedPercent(std::nan(""), locale("en")).isEmpty());
    EXPECT_FALSE(formattedPercent(HUGE_VAL, locale("en")).isEmpty());
}

} // namespace
