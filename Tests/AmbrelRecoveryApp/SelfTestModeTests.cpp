#include "AmbrelRecoveryApp/SelfTestMode.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

bool requested(std::vector<const char*> arguments) {
    return SelfTestMode::isRequested(arguments);
}

} // namespace

TEST(SelfTestModeTest, isRequestedByTheWholeArgumentAtAnyPosition) {
    EXPECT_TRUE(requested({"application", "--self-test"}));
    EXPECT_TRUE(requested({"application", "one", "two", "--self-test", "four"}));
    EXPECT_TRUE(requested({"--self-test"}));
}

TEST(SelfTestModeTest, isNotRequestedBySimilarArguments) {
    EXPECT_FALSE(requested({"application"}));
    EXPECT_FALSE(requested({}));
    for (const char* argument :
         {"-self-test", "--self-test=1", "--SELF-TEST", "--self-tests", "self-test", " --self-test"}) {
        EXPECT_FALSE(requested({"application", argument})) << argument;
    }
}
