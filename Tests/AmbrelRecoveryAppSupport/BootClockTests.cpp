#include "AmbrelRecoveryAppSupport/BootClock.h"

#include <gtest/gtest.h>

#include <ctime>

namespace {

BootClock::time_point sinceBoot() {
    timespec time{};
    clock_gettime(CLOCK_BOOTTIME, &time);
    return BootClock::time_point(std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec));
}

} // namespace

TEST(BootClockTest, countsTheTimeSinceBootIncludingSleep) {
    const BootClock::time_point before = sinceBoot();
    const BootClock::time_point now = BootClock::now();
    EXPECT_LE(before, now);
    EXPECT_LE(now, sinceBoot());
}

TEST(BootClockTest, neverGoesBack) {
    static_assert(BootClock::is_steady);
    BootClock::time_point previous = BootClock::now();
    for (int count = 0; count < 10000; ++count) {
        const BootClock::time_point now = BootClock::now();
        EXPECT_LE(previous, now);
        previous = now;
    }
}
