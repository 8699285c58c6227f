#pragma once

#include "AmbrelRecoveryAppSupport/CloudItems.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <stop_token>

/// Why a package could not be prepared, apart from the system's own errors and a cancellation.
enum class AmbrelRecoveryPackagePreparationError { downloadFailed };

/// Makes sure that a package is on this machine before the engine reads it.
namespace AmbrelRecoveryPackagePreparation {

/// Takes the downloaded fraction, 0 to 1, or none where it is not known.
using ProgressHandler = std::function<void(std::optional<double>)>;

/// How long a download is left alone between two looks at it.
inline constexpr std::chrono::milliseconds pollingInterval(350);

/// Returns once the package can be read; one that does not live in a cloud drive can be at once. A download is awaited
/// without a limit, and goes on in the system when this call ends early.
/// Blocks, and calls `onProgress`, which may be empty, on the calling thread: never the main thread.
/// Throws AmbrelRecoveryPackagePreparationError, std::system_error where the system cannot tell the item's properties,
/// and CancellationError once `stopToken` is stopped.
void prepareForRead(const std::filesystem::path& package, CloudItems& cloudItems, const ProgressHandler& onProgress,
                    const std::stop_token& stopToken);

} // namespace AmbrelRecoveryPackagePreparation
