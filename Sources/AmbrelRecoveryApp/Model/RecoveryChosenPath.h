#pragma once

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryFailureKind.h"

#include <filesystem>
#include <variant>

/// Checks of a path that the user chose, against the file system, which may take long to answer or never do so: never
/// call them on the main thread. Stateless.
namespace RecoveryChosenPath {

/// The path as the workflow keeps it (absolute, without "." and "..", without a trailing separator), or the reason why
/// the choice is rejected.
using Outcome = std::variant<std::filesystem::path, AmbrelRecoveryFailureKind>;

/// Whether a folder of this name is a backup package: its extension is "ambrel", ignoring case. Does not access the
/// file system; any thread.
bool isPackageName(const std::filesystem::path& name);

/// Checks `chosen` as a package: a directory with the extension "ambrel". Otherwise returns invalidPackage.
Outcome package(const std::filesystem::path& chosen);

/// Checks `chosen` as the destination of an export from `package`. Returns destinationExists if anything has this name,
/// even a dangling link. Returns destinationUnavailable if the folder would be created inside `package`, through any
/// name or link, or behind a dangling link.
Outcome destination(const std::filesystem::path& chosen, const std::filesystem::path& package);

} // namespace RecoveryChosenPath
