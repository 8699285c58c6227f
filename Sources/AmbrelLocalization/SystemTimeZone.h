#pragma once

#include <QString>

#include <chrono>

/// Offsets of local time from UTC, by the system's own rules: those of other libraries can be outdated. May be called
/// on any thread, as long as no other thread changes the environment at the same time.
namespace SystemTimeZone {

/// The offset in the system's time zone at the time of the call: TZ in every form that the C library supports, else
/// /etc/localtime. Without TZ, the C library makes one `stat` call. A setting that cannot be read means UTC.
std::chrono::seconds offset(std::chrono::sys_seconds time);

/// The offset in the zone `name` of the tz database ("Europe/Berlin"). An unknown name means UTC.
std::chrono::seconds offset(std::chrono::sys_seconds time, const QString& name);

} // namespace SystemTimeZone
