#include "Package/PackageDirectory.h"

#include "Common/DescriptorIO.h"
#include "Common/Failure.h"

#include <algorithm>
#include <cerrno>
#include <memory>
#include <optional>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

struct DirectoryCloser {
    void operator()(DIR* directory) const { ::closedir(directory); }
};

bool isSomethingElse(const std::string& path) {
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

} // namespace

PackageDirectory::PackageDirectory(const std::string& path)
    : root_(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (root_) {
        return;
    }
    if (errno == ENOTDIR && isSomethingElse(path)) {
        throw Failure(FailureReason::packageInvalid, "not a folder");
    }
    throw Failure(FailureReason::packageUnavailable);
}

PackageFile PackageDirectory::openFile(const char* name) const {
    return openAt(root_.get(), name);
}

PackageFile PackageDirectory::openFile(const char* folder, const Identifier& name) const {
    const UniqueDescriptor opened = openFolder(folder);
    if (!opened) {
        PackageFile file;
        file.state = errno == ENOENT && !hasVanished()    ? PackageFile::State::missing
                     : errno == ENOTDIR || errno == ELOOP ? PackageFile::State::irregular
                                                          : PackageFile::State::unreadable;
        return file;
    }
    return openAt(opened.get(), name.hexadecimal().c_str());
}

std::vector<Identifier> PackageDirectory::list(const char* folder, std::size_t maximum) const {
    UniqueDescriptor opened = openFolder(folder);
    if (!opened && (errno == ENOENT || errno == ENOTDIR || errno == ELOOP) && !hasVanished()) {
        throw Failure(FailureReason::integrity, "a folder of the package is missing");
    }
    const std::unique_ptr<DIR, DirectoryCloser> directory(opened ? ::fdopendir(opened.get()) : nullptr);
    if (!directory) {
        throw Failure(FailureReason::packageUnavailable, "a folder of the package cannot be read");
    }
    static_cast<void>(opened.release());
    std::vector<Identifier> names;
    errno = 0;
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the stream is this function's own
    while (const dirent* entry = ::readdir(directory.get())) {
        if (const auto name = Identifier::fromHexadecimal(entry->d_name)) {
            names.push_back(*name);
        }
        if (names.size() > maximum) {
            throw Failure(FailureReason::integrity, "the package holds too many records");
        }
        errno = 0;
    }
    if (errno != 0) {
        throw Failure(FailureReason::packageUnavailable, "a folder of the package cannot be read");
    }
    std::ranges::sort(names);
    return names;
}

Bytes PackageDirectory::contentOf(const PackageFile& file, std::size_t maximum) {
    switch (file.state) {
    case PackageFile::State::missing:
        throw Failure(FailureReason::integrity, "a record is missing");
    case PackageFile::State::irregular:
        throw Failure(FailureReason::integrity, "a record is not a regular file");
    case PackageFile::State::unreadable:
        throw Failure(FailureReason::packageUnavailable, "a record cannot be read");
    case PackageFile::State::opened:
        break;
    }
    if (file.byteCount > maximum) {
        throw Failure(FailureReason::integrity, "a record is too large");
    }
    Bytes content(static_cast<std::size_t>(file.byteCount));
    const std::optional<std::size_t> count = DescriptorIO::readFully(file.descriptor.get(), content);
    if (!count) {
        throw Failure(FailureReason::packageUnavailable, "a record cannot be read");
    }
    content.resize(*count);
    return content;
}

UniqueDescriptor PackageDirectory::openFolder(const char* folder) const {
    return UniqueDescriptor(::openat(root_.get(), folder, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

PackageFile PackageDirectory::openAt(int folder, const char* name) const {
    // Without O_NONBLOCK, a named pipe in place of a file would block the engine forever.
    UniqueDescriptor descriptor(::openat(folder, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    PackageFile file;
    if (!descriptor) {
        file.state = errno == ENOENT && !hasVanished()  ? PackageFile::State::missing
                     : errno == ELOOP || errno == ENXIO ? PackageFile::State::irregular
                                                        : PackageFile::State::unreadable;
        return file;
    }
    struct stat status = {};
    if (::fstat(descriptor.get(), &status) != 0) {
        file.state = PackageFile::State::unreadable;
    } else if (!S_ISREG(status.st_mode)) {
        file.state = PackageFile::State::irregular;
    } else {
        file.state = PackageFile::State::opened;
        file.byteCount = static_cast<std::uint64_t>(status.st_size);
        file.descriptor = std::move(descriptor);
    }
    return file;
}

// A removed folder stays open, but its link count drops to zero: then the whole package is gone, not a part of it.
bool PackageDirectory::hasVanished() const {
    struct stat status = {};
    const int error = errno;
    const bool vanished = ::fstat(root_.get(), &status) != 0 || status.st_nlink == 0;
    errno = error;
    return vanished;
}
