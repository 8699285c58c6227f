#pragma once

#include "AmbrelLocalization/FileStamp.h"
#include "AmbrelLocalization/SystemTimeZone.h"

#include <filesystem>
#include <mutex>
#include <optional>
#include <string>

/// Asks for the system's time zone again whenever its setting has changed: TZ, else what lies at one path.
/// May be used on any thread, as long as no other thread changes the environment at the same time.
class SystemTimeZoneWatch {
public:
    /// `localTime` is the file or link that changes with the setting.
    explicit SystemTimeZoneWatch(std::filesystem::path localTime);

    /// The time zone as the system is set now. Costs one `lstat` call while the setting is unchanged, none with TZ.
    SystemTimeZone current();

private:
    struct Setting {
        std::optional<std::string> variable;
        std::optional<FileStamp> file;

        bool operator==(const Setting&) const = default;
    };

    Setting currentSetting() const;

    const std::filesystem::path localTime_;
    std::mutex mutex_;
    Setting known_;
    SystemTimeZone zone_;
};
