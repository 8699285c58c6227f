#include "Output/TemporarySibling.h"

#include "Common/Hexadecimal.h"
#include "Common/StopRequest.h"
#include "Output/ExclusiveRename.h"
#include "Output/FolderRemoval.h"
#include "Output/OutputFailure.h"

#include <sodium.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <memory>
#include <string_view>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::string_view namePrefix = ".ambrel-recovery-";
constexpr std::string_view nameSuffix = ".partial";
constexpr std::size_t numberSize = 12;

std::string randomName() {
    std::array<std::uint8_t, numberSize> number{};
    randombytes_buf(number.data(), number.size());
    return std::string(namePrefix) + Hexadecimal::encode(number) + std::string(nameSuffix);
}

bool isNameOfSibling(std::string_view name) {
    constexpr std::size_t digits = 2 * numberSize;
    return name.size() == namePrefix.size() + digits + nameSuffix.size() && name.starts_with(namePrefix) &&
           name.ends_with(nameSuffix) &&
           name.substr(namePrefix.size(), digits).find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

UniqueDescriptor openFolder(int parent, const char* name) {
    return UniqueDescriptor(::openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

// On a file system without locks, nothing is removed: abandoned folders cannot be recognized there.
bool lock(int folder) {
    return ::flock(folder, LOCK_EX | LOCK_NB) == 0;
}

void removeIfAbandoned(int parent, const char* name) {
    const UniqueDescriptor folder = openFolder(parent, name);
    struct stat status = {};
    if (folder && ::fstat(folder.get(), &status) == 0 && status.st_uid == ::geteuid() && lock(folder.get())) {
        FolderRemoval::removeWithContents(parent, name);
    }
}

void removeAbandoned(int parent) {
    UniqueDescriptor folder = openFolder(parent, ".");
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(folder ? ::fdopendir(folder.get()) : nullptr, ::closedir);
    if (!entries) {
        return;
    }
    static_cast<void>(folder.release());
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the stream is this function's own
    while (const dirent* entry = ::readdir(entries.get())) {
        if (isNameOfSibling(entry->d_name)) {
            removeIfAbandoned(parent, entry->d_name);
        }
    }
}

} // namespace

TemporarySibling::TemporarySibling(const Destination& destination) : destination_(destination) {
    removeAbandoned(destination_.parent());
    do {
        make();
    } while (!hold());
}

void TemporarySibling::make() {
    name_ = randomName();
    if (::mkdirat(destination_.parent(), name_.c_str(), 0777) != 0) {
        // A taken random name is not the destination's name, so this is not EEXIST.
        throw OutputFailure::atDestination(errno == EEXIST ? EACCES : errno);
    }
    folder_ = openFolder(destination_.parent(), name_.c_str());
    if (!folder_ && errno != ENOENT) {
        const int error = errno;
        ::unlinkat(destination_.parent(), name_.c_str(), AT_REMOVEDIR);
        throw OutputFailure::atDestination(error);
    }
}

// Returns false if another engine has treated the folder as abandoned, which is possible until it is locked.
bool TemporarySibling::hold() {
    if (!folder_ || (!lock(folder_.get()) && errno == EWOULDBLOCK)) {
        return false;
    }
    struct stat status = {};
    return ::fstatat(destination_.parent(), name_.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 || errno != ENOENT;
}

TemporarySibling::~TemporarySibling() {
    if (!isPublished_) {
        FolderRemoval::removeWithContents(destination_.parent(), name_.c_str());
    }
}

void TemporarySibling::publish(const std::function<void()>& announce) {
    if (::fsync(folder_.get()) != 0 && errno != EINVAL) {
        throw OutputFailure::whileWriting();
    }
    announce();
    StopRequest::throwIfRequested();
    if (const int error = ExclusiveRename::rename(destination_.parent(), name_.c_str(), destination_.name().c_str());
        error != 0) {
        throw OutputFailure::atDestination(error);
    }
    isPublished_ = true;
    // Makes the new name durable sooner; a failure to open the folder is harmless.
    const UniqueDescriptor parent(::openat(destination_.parent(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (parent) {
        ::fsync(parent.get());
    }
}
