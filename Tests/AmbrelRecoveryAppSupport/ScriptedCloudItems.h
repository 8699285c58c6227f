#pragma once

#include "AmbrelRecoveryAppSupport/CloudItems.h"

#include <cstddef>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

/// A cloud drive that plays a script: what the item is like at every look at it. Notes every call in order.
class ScriptedCloudItems final : public CloudItems {
public:
    /// One look at the item.
    struct Look {
        Properties properties;
        std::optional<double> percent = std::nullopt;
        /// Why the properties cannot be read, where they cannot.
        std::optional<std::error_code> failure = std::nullopt;
    };

    /// An item outside of the cloud.
    static Look local();
    /// An item that the drive has still to bring.
    static Look downloading(std::optional<double> percent = std::nullopt);
    /// An item that is here.
    static Look arrived(std::optional<double> percent);
    static Look unreadable(std::error_code failure);

    /// A look beyond the last one is a failure of the test: it throws std::logic_error.
    explicit ScriptedCloudItems(std::vector<Look> looks) : looks_(std::move(looks)) {}

    /// Lets the start of the download fail.
    void refuseToStart(std::error_code failure) { startFailure_ = failure; }

    Properties properties(const std::filesystem::path& item) override;
    void startDownloading(const std::filesystem::path& item) override;
    std::optional<double> percentDownloaded(const std::filesystem::path& item) override;

    /// "properties", "start", "percent", in the order of the calls.
    const std::vector<std::string>& calls() const { return calls_; }

private:
    const Look& currentLook() const;

    std::vector<Look> looks_;
    std::optional<std::error_code> startFailure_;
    std::size_t lookCount_ = 0;
    std::vector<std::string> calls_;
};
