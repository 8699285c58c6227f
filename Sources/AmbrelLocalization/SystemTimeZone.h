#pragma once

#include <QString>

#include <chrono>

/// How far clocks are ahead of UTC, by the system's own rules: those of other libraries can be older than the law.
/// May be called on any thread, as long as no other thread changes the environment at the same time.
namespace SystemTimeZone {

/// In the zone that the system is set to at the call: TZ in every form that the C library knows, else /etc/localtime.
/// Costs one `stat` call of the C library without TZ, none with it. A setting that cannot be read is UTC.
std::chrono::seconds offset(std::chrono::sys_seconds time);

/// In the zone `name` of the tz database ("Europe/Berlin"). A name that the system does not know is UTC.
std::chrono::seconds offset(std::chrono::sys_seconds time, const QString& name);

} // namespace SystemTimeZone
