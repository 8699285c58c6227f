#include "AmbrelLocalization/SystemTimeZone.h"

#include "AmbrelLocalization/FileStamp.h"

#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>

namespace {

struct Setting {
    std::optional<std::string> variable;
    std::optional<FileStamp> file;

    bool operator==(const Setting&) const = default;
};

Setting currentSetting() {
    if (const char* variable = std::getenv("TZ")) { // NOLINT(concurrency-mt-unsafe): see the header
        return {variable, std::nullopt};
    }
    // A link is replaced, not written to, so the entry itself tells when it changes.
    static const std::filesystem::path localTime = "/etc/localtime";
    return {std::nullopt, FileStamp::ofEntry(localTime)};
}

} // namespace

SystemTimeZone SystemTimeZone::current() {
    static std::mutex mutex;
    static Setting known;
    static SystemTimeZone zone;

    Setting setting = currentSetting();
    const std::lock_guard lock(mutex);
    if (!zone.zone || setting != known) {
        known = std::move(setting);
        zone.zone.reset(icu::TimeZone::detectHostTimeZone());
        if (!zone.zone) {
            zone.zone.reset(icu::TimeZone::getGMT()->clone());
        }
        ++zone.revision;
    }
    return zone;
}
