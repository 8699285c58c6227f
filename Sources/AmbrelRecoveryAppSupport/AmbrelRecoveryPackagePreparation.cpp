#include "AmbrelRecoveryAppSupport/AmbrelRecoveryPackagePreparation.h"

#include "AmbrelRecoveryAppSupport/BootClock.h"
#include "AmbrelRecoveryAppSupport/CancellationError.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <utility>

namespace {

/// Sleeps, or throws CancellationError as soon as the token is stopped. If the machine sleeps in the meantime, the rest
/// of the duration may elapse after it wakes up: the standard library waits on a clock that is stopped while the
/// machine sleeps.
void sleepUnlessCancelled(std::chrono::milliseconds duration, std::stop_token stopToken) {
    std::mutex mutex;
    std::condition_variable_any condition;
    std::unique_lock lock(mutex);
    const std::stop_token token = stopToken;
    condition.wait_until(lock, std::move(stopToken), BootClock::now() + duration, [] { return false; });
    if (token.stop_requested()) {
        throw CancellationError();
    }
}

void startDownloading(const std::filesystem::path& package, CloudItems& cloudItems) {
    try {
        cloudItems.startDownloading(package);
    } catch (const std::system_error&) {
        throw AmbrelRecoveryPackagePreparationError::downloadFailed;
    }
}

std::optional<double> fractionOf(double percent) {
    return std::isnan(percent) ? std::nullopt : std::optional(std::clamp(percent / 100.0, 0.0, 1.0));
}

bool isDownloaded(const CloudItems::Properties& properties) {
    return properties.downloadingStatus == CloudItems::DownloadingStatus::current ||
           properties.downloadingStatus == CloudItems::DownloadingStatus::downloaded;
}

} // namespace

void AmbrelRecoveryPackagePreparation::prepareForRead(const std::filesystem::path& package, CloudItems& cloudItems,
                                                      const ProgressHandler& onProgress,
                                                      const std::stop_token& stopToken) {
    const auto report = [&onProgress](std::optional<double> fraction) {
        if (onProgress) {
            onProgress(fraction);
        }
    };
    if (!cloudItems.properties(package).isUbiquitous.value_or(false)) {
        report(1.0);
        return;
    }
    startDownloading(package, cloudItems);
    for (;;) {
        if (stopToken.stop_requested()) {
            throw CancellationError();
        }
        const CloudItems::Properties properties = cloudItems.properties(package);
        if (properties.hasDownloadingError) {
            throw AmbrelRecoveryPackagePreparationError::downloadFailed;
        }
        std::optional<double> fraction = cloudItems.percentDownloaded(package);
        if (fraction) {
            fraction = fractionOf(*fraction);
        }
        report(fraction);
        if (isDownloaded(properties)) {
            report(1.0);
            return;
        }
        sleepUnlessCancelled(pollingInterval, stopToken);
    }
}
