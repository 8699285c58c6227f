#include "Common/FailureText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace {

// What the application looks for, in its order.
constexpr std::array<std::string_view, 8> needles = {
    "did not unlock",
    "credential is invalid",
    "invalid or unsupported",
    "package is unavailable",
    "integrity verification failed",
    "destination already exists",
    "destination is unavailable",
    "output could not be written",
};

const std::vector<std::pair<FailureReason, std::string_view>> recognized = {
    {FailureReason::passphraseDidNotUnlock, needles[0]}, {FailureReason::recoveryKeyDidNotUnlock, needles[0]},
    {FailureReason::credentialInvalid, needles[1]},      {FailureReason::packageInvalid, needles[2]},
    {FailureReason::packageUnavailable, needles[3]},     {FailureReason::integrity, needles[4]},
    {FailureReason::destinationExists, needles[5]},      {FailureReason::destinationUnavailable, needles[6]},
    {FailureReason::outputNotWritten, needles[7]},
};

const std::vector<FailureReason> others = {FailureReason::credentialMissing, FailureReason::snapshotUnknown,
                                           FailureReason::outOfMemory, FailureReason::reportNotPrinted,
                                           FailureReason::unexpected};

std::vector<std::string_view> needlesIn(FailureReason reason) {
    std::string text = FailureText::line("ambrel-recovery", Failure(reason, "a detail"));
    std::ranges::transform(text, text.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    std::vector<std::string_view> found;
    std::ranges::copy_if(needles, std::back_inserter(found),
                         [&](std::string_view needle) { return text.find(needle) != std::string::npos; });
    return found;
}

} // namespace

TEST(FailureTextTest, containsOnlyTheWordsOfItsOwnFailure) {
    for (const auto& [reason, needle] : recognized) {
        EXPECT_EQ(std::vector{needle}, needlesIn(reason)) << FailureText::sentence(reason);
    }
}

TEST(FailureTextTest, ofOtherFailuresContainsNoneOfTheWords) {
    for (const FailureReason reason : others) {
        EXPECT_TRUE(needlesIn(reason).empty()) << FailureText::sentence(reason);
    }
}

TEST(FailureTextTest, noStatusMeansSuccessOrASignal) {
    for (const auto& [reason, needle] : recognized) {
        EXPECT_GE(FailureText::exitStatus(reason), 1);
        EXPECT_LT(FailureText::exitStatus(reason), 15);
    }
    for (const FailureReason reason : others) {
        EXPECT_EQ(1, FailureText::exitStatus(reason));
    }
}

TEST(FailureTextTest, isOneLineWithTheDetail) {
    EXPECT_EQ("engine: The backup package is unavailable. (why)\n",
              FailureText::line("engine", Failure(FailureReason::packageUnavailable, "why")));
    EXPECT_EQ("engine: The backup package is unavailable.\n",
              FailureText::line("engine", Failure(FailureReason::packageUnavailable)));
}
