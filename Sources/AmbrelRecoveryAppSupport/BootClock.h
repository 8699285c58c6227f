#pragma once

#include <chrono>

/// A monotonic clock that also advances while the machine sleeps. One source file per system implements it.
struct BootClock {
    using rep = std::chrono::nanoseconds::rep;
    using period = std::chrono::nanoseconds::period;
    using duration = std::chrono::nanoseconds;
    using time_point = std::chrono::time_point<BootClock>;
    static constexpr bool is_steady = true;

    static time_point now() noexcept;
};
