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

/// Whether anything has this name, including a dangling symbolic link.
bool isTaken(const Path& path) {
    std::error_code error;
    return std::filesystem::exists(std::filesystem::symlink_status(path, error));
}

/// Whether the existing `folder` is `package` or inside it. Returns true if that cannot be determined.
bool isInside(const Path& folder, const Path& package) {
    std::error_code error;
    // Standard libraries differ in whether a comparison with a missing file is an error.
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

/// Whether a new folder at the absolute `path` may be created inside `package`. The engine may create missing parent
/// folders.
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
    // The engine gets the path as it was chosen, and the kernel and a program may resolve ".." in it differently.
    if (mayLeadInto(package, absolutePath(chosen)) || mayLeadInto(package, path)) {
        return AmbrelRecoveryFailureKind::destinationUnavailable;
    }
    return path;
}
