#pragma once

#include "AmbrelRecoveryAppSupport/CloudItems.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <stop_token>

/// Why a package could not be prepared, apart from system errors and cancellation.
enum class AmbrelRecoveryPackagePreparationError { downloadFailed };

/// Ensures that a package is available on this machine before the engine reads it.
namespace AmbrelRecoveryPackagePreparation {

/// Receives the downloaded fraction, 0 to 1, or std::nullopt if unknown.
using ProgressHandler = std::function<void(std::optional<double>)>;

/// The interval between two checks of a download.
inline constexpr std::chrono::milliseconds pollingInterval(350);

/// Returns when the package can be read: immediately, unless it is in a cloud drive. A download has no time limit, and
/// the system continues it if this call ends early.
/// Blocks, and calls `onProgress`, which may be empty, on the calling thread: never call this on the main thread.
/// Throws AmbrelRecoveryPackagePreparationError, std::system_error if the item's properties cannot be read, and
/// CancellationError once `stopToken` is stopped.
void prepareForRead(const std::filesystem::path& package, CloudItems& cloudItems, const ProgressHandler& onProgress,
                    const std::stop_token& stopToken);

} // namespace AmbrelRecoveryPackagePreparation
