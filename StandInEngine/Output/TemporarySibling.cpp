#include "Output/TemporarySibling.h"

#include "Common/Hexadecimal.h"
#include "Common/StopRequest.h"
#include "Output/ExclusiveRename.h"
#include "Output/FolderRemoval.h"
#include "Output/OutputFailure.h"

#include <sodium.h>

#include <array>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::string randomName() {
    std::array<std::uint8_t, 12> number{};
    randombytes_buf(number.data(), number.size());
    return ".ambrel-recovery-" + Hexadecimal::encode(number) + ".partial";
}

} // namespace

TemporarySibling::TemporarySibling(const Destination& destination) : destination_(destination), name_(randomName()) {
    if (::mkdirat(destination_.parent(), name_.c_str(), 0777) != 0) {
        // A taken name is one that was guessed, not the destination's own.
        throw OutputFailure::atDestination(errno == EEXIST ? EACCES : errno);
    }
    folder_ = UniqueDescriptor(
        ::openat(destination_.parent(), name_.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!folder_) {
        const int error = errno;
        ::unlinkat(destination_.parent(), name_.c_str(), AT_REMOVEDIR);
        throw OutputFailure::atDestination(error);
    }
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
    // The new name is safe on the disk a moment earlier; a folder that cannot be opened for it is no loss.
    const UniqueDescriptor parent(::openat(destination_.parent(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (parent) {
        ::fsync(parent.get());
    }
}
