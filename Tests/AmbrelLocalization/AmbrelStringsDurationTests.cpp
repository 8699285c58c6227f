#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"
#include "AmbrelLocalization/AmbrelStrings.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace std::chrono_literals;

QString duration(std::chrono::duration<double> value,
                 AmbrelInterfaceLanguage language = AmbrelInterfaceLanguage::english) {
    return AmbrelStrings::formattedDuration(value, language.locale());
}

TEST(FormattedDurationTest, showsTheTwoLargestUnits) {
    EXPECT_EQ(duration(90'061s), QStringLiteral("1 day, 1 hr"));
    EXPECT_EQ(duration(3'661s), QStringLiteral("1 hr, 1 min"));
    EXPECT_EQ(duration(61s), QStringLiteral("1 min, 1 sec"));
    EXPECT_EQ(duration(59s), QStringLiteral("59 sec"));
    EXPECT_EQ(duration(24h * 400), QStringLiteral("400 days"));
}

TEST(FormattedDurationTest, leavesOutUnitsThatAreZero) {
    EXPECT_EQ(duration(3'600s), QStringLiteral("1 hr"));
    EXPECT_EQ(duration(86'400s), QStringLiteral("1 day"));
    EXPECT_EQ(duration(86'400s + 5min), QStringLiteral("1 day, 5 min"));
    EXPECT_EQ(duration(3'605s), QStringLiteral("1 hr, 5 sec"));
}

TEST(FormattedDurationTest, showsZeroSecondsForNothing) {
    EXPECT_EQ(duration(0s), QStringLiteral("0 sec"));
    EXPECT_EQ(duration(400ms), QStringLiteral("0 sec"));
    EXPECT_EQ(duration(std::chrono::duration<double>(std::nan(""))), QStringLiteral("0 sec"));
}

TEST(FormattedDurationTest, roundsTheLastUnit) {
    EXPECT_EQ(duration(1'500ms), QStringLiteral("2 sec"));
    EXPECT_EQ(duration(2'500ms), QStringLiteral("2 sec")) << "half to even";
    EXPECT_EQ(duration(1h + 1min + 31s), QStringLiteral("1 hr, 2 min"));
    EXPECT_EQ(duration(59'600ms), QStringLiteral("1 min"));
    EXPECT_EQ(duration(59min + 59'600ms), QStringLiteral("1 hr"));
    EXPECT_EQ(duration(23h + 59min + 40s), QStringLiteral("1 day"));
}

TEST(FormattedDurationTest, hasOneSignIfItIsNegative) {
    EXPECT_EQ(duration(-3'661s), QStringLiteral("-1 hr, 1 min"));
}

TEST(FormattedDurationTest, isShownForAnyNumber) {
    EXPECT_FALSE(duration(std::chrono::duration<double>(1e300)).isEmpty());
    EXPECT_FALSE(duration(std::chrono::duration<double>(-HUGE_VAL)).isEmpty());
    EXPECT_FALSE(duration(std::chrono::nanoseconds::max()).isEmpty());
}

TEST(FormattedDurationTest, isInTheWordsOfTheLanguage) {
    EXPECT_EQ(duration(90'061s, AmbrelInterfaceLanguage::german), QStringLiteral("1 Tg., 1 Std."));
    EXPECT_EQ(duration(90'061s, AmbrelInterfaceLanguage::japanese), QStringLiteral("1 日 1 時間"));
    EXPECT_EQ(duration(2h, AmbrelInterfaceLanguage::russian), QStringLiteral("2 ч"));
}

} // namespace
