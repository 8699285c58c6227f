#include "AmbrelLocalization/SystemTimeZone.h"

#include "Support/ChildProcess.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <sched.h>
#include <sys/mount.h>

namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

constexpr std::chrono::sys_seconds summer = std::chrono::sys_days(std::chrono::year(2026) / 7 / 15);
constexpr std::chrono::sys_seconds winter = std::chrono::sys_days(std::chrono::year(2026) / 1 / 15);

TEST(SystemTimeZoneTest, followsTheEnvironmentVariable) {
    const ScopedEnvironment zone("TZ", "Europe/Berlin");
    EXPECT_EQ(SystemTimeZone::offset(summer), 2h);
    EXPECT_EQ(SystemTimeZone::offset(winter), 1h);
    {
        const ScopedEnvironment other("TZ", "America/New_York");
        EXPECT_EQ(SystemTimeZone::offset(summer), -4h);
    }
    EXPECT_EQ(SystemTimeZone::offset(summer), 2h);
}

TEST(SystemTimeZoneTest, isExactToTheSecond) {
    const ScopedEnvironment zone("TZ", "Europe/Berlin");
    EXPECT_EQ(SystemTimeZone::offset(std::chrono::sys_days(std::chrono::year(1890) / 1 / 1)), 53min + 28s);
    constexpr std::chrono::sys_seconds change = std::chrono::sys_days(std::chrono::year(2026) / 3 / 29) + 1h;
    EXPECT_EQ(SystemTimeZone::offset(change - 1s), 1h);
    EXPECT_EQ(SystemTimeZone::offset(change), 2h);
}

TEST(SystemTimeZoneTest, isUTCIfTheVariableIsInvalid) {
    for (const char* value : {"", "nonsense", "../../etc/passwd", ":", "UTC"}) {
        const ScopedEnvironment zone("TZ", value);
        EXPECT_EQ(SystemTimeZone::offset(summer), 0s) << value;
    }
}

TEST(SystemTimeZoneTest, hasAnOffsetAtTheEndsOfTime) {
    const ScopedEnvironment zone("TZ", "<+0530>-5:30");
    EXPECT_EQ(SystemTimeZone::offset(std::chrono::sys_seconds(10'000'000h)), 5h + 30min);
    EXPECT_EQ(SystemTimeZone::offset(std::chrono::sys_seconds(-10'000'000h)), 5h + 30min);
    EXPECT_EQ(SystemTimeZone::offset(std::chrono::sys_seconds::max()), 0s) << "a year that no calendar holds";
    EXPECT_EQ(SystemTimeZone::offset(std::chrono::sys_seconds::min()), 0s);
}

TEST(SystemTimeZoneTest, knowsTheZonesOfTheDatabaseByName) {
    const ScopedEnvironment zone("TZ", "Asia/Tokyo");
    EXPECT_EQ(SystemTimeZone::offset(summer, QStringLiteral("Europe/Berlin")), 2h);
    EXPECT_EQ(SystemTimeZone::offset(winter, QStringLiteral("Europe/Berlin")), 1h);
    EXPECT_EQ(SystemTimeZone::offset(summer, QStringLiteral("America/Mexico_City")), -6h)
        << "no summer time since 2022";
    for (const QString& name : {QString(), QStringLiteral("no/such place"), QStringLiteral("UTC"),
                                QStringLiteral("../../etc/localtime"), QString(10'000, u'x')}) {
        EXPECT_EQ(SystemTimeZone::offset(summer, name), 0s) << name.toStdString();
    }
}

constexpr const char* notAllowed = "not allowed";

std::string hours() {
    return std::to_string(std::chrono::floor<std::chrono::hours>(SystemTimeZone::offset(summer)).count()) + " ";
}

/// The offsets that follow when /etc/localtime is made, replaced, removed and put back, and TZ set and unset.
std::string offsetsWhileTheSettingChanges() {
    if (::unshare(CLONE_NEWNS) != 0 || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        ::mount("none", "/etc", "tmpfs", 0, nullptr) != 0) {
        return notAllowed;
    }
    const ScopedEnvironment variable("TZ", std::nullopt);
    const fs::path zones = "/usr/share/zoneinfo";
    fs::create_symlink(zones / "Europe/Berlin", "/etc/localtime");
    std::string found = hours();
    fs::create_symlink(zones / "Asia/Tokyo", "/etc/new");
    fs::rename("/etc/new", "/etc/localtime");
    found += hours();
    fs::remove("/etc/localtime");
    found += hours();
    fs::copy_file(zones / "America/New_York", "/etc/localtime");
    found += hours();
    {
        const ScopedEnvironment set("TZ", "Asia/Almaty");
        found += hours();
    }
    return found + hours();
}

TEST(SystemTimeZoneTest, followsTheSystemsSettingWhileTheProgramRuns) {
    const std::string outcome = ChildProcess::outcome(offsetsWhileTheSettingChanges);
    if (outcome == notAllowed) {
        GTEST_SKIP() << "this system does not let the test mount a disk";
    }
    EXPECT_EQ(outcome, "2 9 0 -4 5 -4 ");
}

} // namespace
