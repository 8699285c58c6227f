#include "Output/Destination.h"

#include "Output/OutputFailure.h"

#include <cerrno>
#include <cstddef>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

bool isSameFile(const struct stat& first, const struct stat& second) {
    return first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

struct stat statusOf(int descriptor) {
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0) {
        throw OutputFailure::atDestination(errno);
    }
    return status;
}

std::string_view withoutTrailingSlashes(std::string_view path) {
    while (path.size() > 1 && path.ends_with('/')) {
        path.remove_suffix(1);
    }
    return path;
}

} // namespace

Destination::Destination(const std::string& path) {
    const std::string_view trimmed = withoutTrailingSlashes(path);
    const std::size_t slash = trimmed.rfind('/');
    const std::string folder = slash == std::string_view::npos ? "."
                               : slash == 0                    ? "/"
                                                               : std::string(trimmed.substr(0, slash));
    name_ = trimmed.substr(slash == std::string_view::npos ? 0 : slash + 1);
    if (trimmed == "/") {
        throw OutputFailure::atDestination(EEXIST);
    }
    parent_ = UniqueDescriptor(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!parent_ || name_.empty()) {
        throw OutputFailure::atDestination(ENOENT);
    }
    struct stat status = {};
    if (::fstatat(parent_.get(), name_.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0) {
        throw OutputFailure::atDestination(EEXIST);
    }
    if (errno != ENOENT) {
        throw OutputFailure::atDestination(errno);
    }
}

void Destination::requireOutside(int folder) const {
    const struct stat forbidden = statusOf(folder);
    UniqueDescriptor current(::openat(parent_.get(), ".", O_PATH | O_DIRECTORY | O_CLOEXEC));
    while (current) {
        const struct stat status = statusOf(current.get());
        if (isSameFile(status, forbidden)) {
            throw OutputFailure::atDestination(EINVAL);
        }
        UniqueDescriptor above(::openat(current.get(), "..", O_PATH | O_DIRECTORY | O_CLOEXEC));
        if (above && isSameFile(statusOf(above.get()), status)) {
            return;
        }
        current = std::move(above);
    }
    throw OutputFailure::atDestination(errno);
}
