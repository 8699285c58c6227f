#include "AmbrelLocalization/SystemTimeZone.h"

#include "AmbrelLocalization/IcuText.h"
#include "AmbrelLocalization/SystemTimeZoneWatch.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

namespace {

QString currentName() {
    icu::UnicodeString name;
    SystemTimeZone::current().zone->getID(name);
    return IcuText::toQString(name);
}

TEST(SystemTimeZone, followsTheVariable) {
    const ScopedEnvironment zone("TZ", "Europe/Berlin");
    EXPECT_EQ(currentName(), QStringLiteral("Europe/Berlin"));
    {
        const ScopedEnvironment other("TZ", "America/New_York");
        EXPECT_EQ(currentName(), QStringLiteral("America/New_York"));
    }
    EXPECT_EQ(currentName(), QStringLiteral("Europe/Berlin"));
}

TEST(SystemTimeZone, keepsItsRevisionWhileTheSettingStaysTheSame) {
    const ScopedEnvironment zone("TZ", "Asia/Tokyo");
    const SystemTimeZone first = SystemTimeZone::current();
    const SystemTimeZone second = SystemTimeZone::current();
    EXPECT_EQ(first.revision, second.revision);
    EXPECT_EQ(first.zone, second.zone);
    const ScopedEnvironment other("TZ", "Asia/Seoul");
    EXPECT_NE(SystemTimeZone::current().revision, first.revision);
}

TEST(SystemTimeZoneWatch, seesThatTheLinkIsReplacedRemovedAndPutBack) {
    const ScopedEnvironment variable("TZ", std::nullopt);
    const TemporaryDirectory folder;
    const std::filesystem::path link = folder.path() / "localtime";
    std::filesystem::create_symlink("/usr/share/zoneinfo/Europe/Berlin", link);
    SystemTimeZoneWatch watch(link);
    const std::uint64_t first = watch.current().revision;
    EXPECT_EQ(watch.current().revision, first);

    std::filesystem::create_symlink("/usr/share/zoneinfo/Asia/Tokyo", folder.path() / "new");
    std::filesystem::rename(folder.path() / "new", link);
    const SystemTimeZone replaced = watch.current();
    EXPECT_EQ(replaced.revision, first + 1);
    EXPECT_NE(replaced.zone, nullptr);
    EXPECT_EQ(watch.current().revision, first + 1);

    std::filesystem::remove(link);
    EXPECT_EQ(watch.current().revision, first + 2);
    EXPECT_EQ(watch.current().revision, first + 2);
    writeInPlace(folder / "localtime", "TZif2");
    EXPECT_EQ(watch.current().revision, first + 3);
}

TEST(SystemTimeZoneWatch, passesOverTheLinkWhileTheVariableIsSet) {
    const ScopedEnvironment variable("TZ", "Europe/Berlin");
    const TemporaryDirectory folder;
    SystemTimeZoneWatch watch(folder.path() / "localtime");
    const std::uint64_t first = watch.current().revision;
    writeInPlace(folder / "localtime", "TZif2");
    EXPECT_EQ(watch.current().revision, first);
    const ScopedEnvironment none("TZ", std::nullopt);
    EXPECT_EQ(watch.current().revision, first + 1);
}

TEST(SystemTimeZone, isSomeZoneForWhateverTheVariableSays) {
    for (const char* value : {"", "nonsense", "../../etc/passwd", "UTC", "EST5EDT", "XYZ-3:30", ":Europe/Paris"}) {
        const ScopedEnvironment zone("TZ", value);
        EXPECT_NE(SystemTimeZone::current().zone, nullptr) << value;
    }
}

TEST(SystemTimeZone, tellsZonesOfTheSameNameApart) {
    const ScopedEnvironment zone("TZ", "XYZ3");
    EXPECT_EQ(SystemTimeZone::current().zone->getRawOffset(), -3 * 3'600'000);
    const ScopedEnvironment other("TZ", "XYZ4");
    EXPECT_EQ(SystemTimeZone::current().zone->getRawOffset(), -4 * 3'600'000);
}

} // namespace
