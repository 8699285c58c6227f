#include "ScriptedCloudItems.h"

#include <gtest/gtest.h>

#include <stdexcept>

ScriptedCloudItems::Look ScriptedCloudItems::local() {
    return {};
}

ScriptedCloudItems::Look ScriptedCloudItems::downloading(std::optional<double> percent) {
    return {{.isUbiquitous = true}, percent};
}

ScriptedCloudItems::Look ScriptedCloudItems::arrived(std::optional<double> percent) {
    return {{.isUbiquitous = true, .isDownloaded = true}, percent};
}

ScriptedCloudItems::Look ScriptedCloudItems::unreadable(std::error_code failure) {
    return {{}, std::nullopt, failure};
}

CloudItems::Properties ScriptedCloudItems::properties(const std::filesystem::path& item) {
    EXPECT_EQ(item, "/cloud/Backup.ambrel");
    calls_.emplace_back("properties");
    ++lookCount_;
    if (currentLook().failure) {
        throw std::filesystem::filesystem_error("properties", item, *currentLook().failure);
    }
    return currentLook().properties;
}

void ScriptedCloudItems::startDownloading(const std::filesystem::path& item) {
    EXPECT_EQ(item, "/cloud/Backup.ambrel");
    calls_.emplace_back("start");
    if (startFailure_) {
        throw std::system_error(*startFailure_);
    }
}

std::optional<double> ScriptedCloudItems::percentDownloaded(const std::filesystem::path& item) {
    EXPECT_EQ(item, "/cloud/Backup.ambrel");
    calls_.emplace_back("percent");
    return currentLook().percent;
}

const ScriptedCloudItems::Look& ScriptedCloudItems::currentLook() const {
    if (lookCount_ == 0 || lookCount_ > looks_.size()) {
        throw std::logic_error("a look that is not in the script");
    }
    return looks_[lookCount_ - 1];
}
