#include "AmbrelRecoveryAppSupport/AmbrelRecoveryPackagePreparation.h"

#include "AmbrelRecoveryAppSupport/BootClock.h"
#include "AmbrelRecoveryAppSupport/CancellationError.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <system_error>

namespace {

/// Sleeps, at most until the token is stopped. If the machine sleeps in the meantime, the rest of the duration may
/// elapse after it wakes up: the standard library waits on a clock that is stopped while the machine sleeps.
void sleepUnlessCancelled(std::chrono::milliseconds duration, const std::stop_token& stopToken) {
    std::mutex mutex;
    std::condition_variable_any condition;
    std::unique_lock lock(mutex);
    condition.wait_until(lock, stopToken, BootClock::now() + duration, [] { return false; });
}

std::optional<double> fractionOf(std::optional<double> percent) {
    return percent && !std::isnan(*percent) ? std::optional(std::clamp(*percent / 100, 0.0, 1.0)) : std::nullopt;
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
    if (!cloudItems.properties(package).isUbiquitous) {
        report(1.0);
        return;
    }
    try {
        cloudItems.startDownloading(package);
    } catch (const std::system_error&) {
        throw AmbrelRecoveryPackagePreparationError::downloadFailed;
    }
    for (;;) {
        if (stopToken.stop_requested()) {
            throw CancellationError();
        }
        const CloudItems::Properties properties = cloudItems.properties(package);
        if (properties.hasDownloadingError) {
            throw AmbrelRecoveryPackagePreparationError::downloadFailed;
        }
        report(fractionOf(cloudItems.percentDownloaded(package)));
        if (properties.isDownloaded) {
            report(1.0);
            return;
        }
        sleepUnlessCancelled(pollingInterval, stopToken);
    }
}
