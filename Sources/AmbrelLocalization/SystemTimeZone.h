#pragma once

#include <unicode/timezone.h>

#include <cstdint>
#include <memory>

/// The time zone that the system is set to.
struct SystemTimeZone {
    /// Never null.
    std::shared_ptr<const icu::TimeZone> zone;

    /// Another number for every setting seen by this process.
    std::uint64_t revision = 0;

    /// The setting as it is now: TZ, else /etc/localtime. Costs one `lstat` call while it is unchanged.
    /// May be called on any thread, as long as no other thread changes the environment at the same time.
    static SystemTimeZone current();
};
