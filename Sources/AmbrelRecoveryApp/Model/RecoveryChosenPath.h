#pragma once

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryFailureKind.h"

#include <filesystem>
#include <variant>

/// What the workflow asks the disk about a path that the user chose. A disk may take long to answer, or never do it:
/// never on the main thread. Stateless.
namespace RecoveryChosenPath {

/// The path as the workflow keeps it: absolute, without "." and ".." in it and without a separator at its end; or why
/// the choice is refused.
using Outcome = std::variant<std::filesystem::path, AmbrelRecoveryFailureKind>;

/// Whether a folder of this name is a backup package: its extension is "ambrel", in capitals or not. Asks no disk; any
/// thread.
bool isPackageName(const std::filesystem::path& name);

/// `chosen` as a package: a directory with the extension "ambrel". Otherwise invalidPackage.
Outcome package(const std::filesystem::path& chosen);

/// `chosen` as a folder for an export out of `package`. destinationExists where anything has this name, a link that
/// leads nowhere included; destinationUnavailable where the folder would come to be inside `package`, by whatever name
/// or link, or behind a link that leads nowhere.
Outcome destination(const std::filesystem::path& chosen, const std::filesystem::path& package);

} // namespace RecoveryChosenPath
