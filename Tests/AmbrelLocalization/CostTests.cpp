#include "AmbrelLocalization/AmbrelInterfaceLanguagePreferenceStore.h"
#include "AmbrelLocalization/AmbrelStrings.h"
#include "CountedFileCalls.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

template<typename Function>
CountedFileCalls callsOf(const Function& function) {
    const CountedFileCalls before = CountedFileCalls::total();
    function();
    return CountedFileCalls::total() - before;
}

class CostTest : public testing::Test {
protected:
    CostTest() {
        variables_.set("LANG", "de_DE.UTF-8");
        AmbrelInterfaceLanguagePreferenceStore(defaults_, AmbrelInterfaceLanguagePreferenceStore::defaultStorageKey())
            .save(AmbrelInterfaceLanguage::french);
        waitUntilSettled(defaults_->path());
    }

    ScopedLocaleVariables variables_;
    std::shared_ptr<AmbrelUserDefaults> defaults_ = emptyStandardUserDefaults();
};

TEST_F(CostTest, isCounted) {
    EXPECT_EQ(callsOf([] { std::ifstream("/etc/passwd").get(); }).openings, 1U);
    EXPECT_EQ(callsOf([] { EXPECT_TRUE(std::filesystem::exists("/etc/passwd")); }).states, 1U);
}

TEST_F(CostTest, ofALookupIsTwoStatCalls) {
    AmbrelStrings::localized(AmbrelStrings::genericCancel());
    const CountedFileCalls calls = callsOf([] { AmbrelStrings::localized(AmbrelStrings::genericCancel()); });
    EXPECT_EQ(calls, (CountedFileCalls{.states = 2, .openings = 0}));
}

TEST_F(CostTest, ofALookupInTheSystemsLanguageIsTwoStatCalls) {
    std::filesystem::remove(defaults_->path());
    AmbrelStrings::localized(AmbrelStrings::genericCancel());
    const CountedFileCalls calls = callsOf([] { AmbrelStrings::localized(AmbrelStrings::genericCancel()); });
    EXPECT_EQ(calls, (CountedFileCalls{.states = 2, .openings = 0}));
}

TEST_F(CostTest, ofTheFormattingLocaleIsOneStatCall) {
    AmbrelStrings::currentFormattingLocale();
    EXPECT_EQ(callsOf([] { AmbrelStrings::currentFormattingLocale(); }),
              (CountedFileCalls{.states = 1, .openings = 0}));
}

// Besides what the C library does for the time zone, which is not counted here.
TEST_F(CostTest, ofADateIsNoFileCall) {
    const icu::Locale locale = AmbrelStrings::currentFormattingLocale();
    const std::chrono::sys_time<std::chrono::milliseconds> date;
    AmbrelStrings::formattedDateTime(date, locale);
    EXPECT_EQ(callsOf([&] { AmbrelStrings::formattedDateTime(date, locale); }),
              (CountedFileCalls{.states = 0, .openings = 0}));
}

} // namespace
