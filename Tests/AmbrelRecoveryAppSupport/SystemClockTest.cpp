#include "AmbrelRecoveryAppSupport/SystemClock.h"

#include <gtest/gtest.h>

#include <ctime>

namespace {

SystemClock::time_point sinceBoot() {
    timespec time{};
    clock_gettime(CLOCK_BOOTTIME, &time);
    return SystemClock::time_point(std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec));
}

} // namespace

TEST(SystemClockTest, CountsTheTimeSinceTheStartOfTheMachineWithItsSleep) {
    const SystemClock::time_point before = sinceBoot();
    const SystemClock::time_point now = SystemClock::now();
    EXPECT_LE(before, now);
    EXPECT_LE(now, sinceBoot());
}

TEST(SystemClockTest, NeverGoesBack) {
    static_assert(SystemClock::is_steady);
    SystemClock::time_point previous = SystemClock::now();
    for (int count = 0; count < 10000; ++count) {
        const SystemClock::time_point now = SystemClock::now();
        EXPECT_LE(previous, now);
        previous = now;
    }
}
