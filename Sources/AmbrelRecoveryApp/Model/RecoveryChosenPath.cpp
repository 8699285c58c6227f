#include "AmbrelRecoveryApp/Model/RecoveryChosenPath.h"

#include <algorithm>
#include <string>
#include <system_error>

namespace {

using Path = std::filesystem::path;

Path absolutePath(const Path& path) {
    std::error_code error;
    return std::filesystem::absolute(path, error);
}

Path standardized(const Path& path) {
    const Path normal = absolutePath(path).lexically_normal();
    return normal.has_filename() ? normal : normal.parent_path();
}

/// Whether anything has this name, a symbolic link that leads nowhere included.
bool isTaken(const Path& path) {
    std::error_code error;
    return std::filesystem::exists(std::filesystem::symlink_status(path, error));
}

/// Whether `folder`, which exists, is `package` or somewhere in it; so it is, too, where that cannot be found out.
bool isInside(const Path& folder, const Path& package) {
    std::error_code error;
    // Libraries differ in whether a comparison with a missing file is an error.
    if (std::filesystem::status(package, error).type() == std::filesystem::file_type::not_found) {
        return false;
    }
    Path ancestor = std::filesystem::canonical(folder, error);
    if (error) {
        return true;
    }
    while (!std::filesystem::equivalent(ancestor, package, error)) {
        if (error) {
            return true;
        }
        if (ancestor == ancestor.parent_path()) {
            return false;
        }
        ancestor = ancestor.parent_path();
    }
    return true;
}

/// Whether a new folder at `path`, which is absolute, may come to be inside `package`. Folders that are missing on the
/// way may be made by the engine.
bool mayLeadInto(const Path& package, const Path& path) {
    std::error_code error;
    Path folder = path.parent_path();
    while (!std::filesystem::exists(folder, error)) {
        if (isTaken(folder) || folder == folder.parent_path()) {
            return true;
        }
        folder = folder.parent_path();
    }
    return isInside(folder, package);
}

} // namespace

bool RecoveryChosenPath::isPackageName(const Path& name) {
    std::string extension = name.extension().native();
    std::ranges::transform(extension, extension.begin(), [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
    });
    return extension == ".ambrel";
}

RecoveryChosenPath::Outcome RecoveryChosenPath::package(const Path& chosen) {
    const Path path = standardized(chosen);
    std::error_code error;
    if (!isPackageName(path) || !std::filesystem::is_directory(chosen, error)) {
        return AmbrelRecoveryFailureKind::invalidPackage;
    }
    return path;
}

RecoveryChosenPath::Outcome RecoveryChosenPath::destination(const Path& chosen, const Path& package) {
    const Path path = standardized(chosen);
    if (isTaken(chosen) || isTaken(path)) {
        return AmbrelRecoveryFailureKind::destinationExists;
    }
    // The engine gets the path as it was chosen, and the system and a program may understand ".." in it differently.
    if (mayLeadInto(package, absolutePath(chosen)) || mayLeadInto(package, path)) {
        return AmbrelRecoveryFailureKind::destinationUnavailable;
    }
    return path;
}
