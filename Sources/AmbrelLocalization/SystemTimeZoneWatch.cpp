#include "AmbrelLocalization/SystemTimeZoneWatch.h"

#include <cstdlib>
#include <utility>

SystemTimeZoneWatch::SystemTimeZoneWatch(std::filesystem::path localTime) : localTime_(std::move(localTime)) {}

SystemTimeZone SystemTimeZoneWatch::current() {
    Setting setting = currentSetting();
    const std::lock_guard lock(mutex_);
    if (!zone_.zone || setting != known_) {
        known_ = std::move(setting);
        zone_.zone.reset(icu::TimeZone::detectHostTimeZone());
        if (!zone_.zone) {
            zone_.zone.reset(icu::TimeZone::getGMT()->clone());
        }
        ++zone_.revision;
    }
    return zone_;
}

SystemTimeZoneWatch::Setting SystemTimeZoneWatch::currentSetting() const {
    if (const char* variable = std::getenv("TZ")) { // NOLINT(concurrency-mt-unsafe): see the header
        return {variable, std::nullopt};
    }
    // A link is replaced, not written to, so the entry itself tells when it changes.
    return {std::nullopt, FileStamp::ofEntry(localTime_)};
}
