#include "AmbrelRecoveryApp/Foundation/MainThread.h"

#include <gtest/gtest.h>

#include <thread>

TEST(MainThreadDeathTest, theMainThreadMayContinue) {
    MainThread::require();
}

TEST(MainThreadDeathTest, anotherThreadStopsTheProgramInEveryBuild) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(std::thread(MainThread::require).join(), "main thread");
}
