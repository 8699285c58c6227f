#include "AmbrelLocalization/FileStamp.h"

#include <chrono>

namespace {

std::int64_t nanoseconds(const timespec& time) {
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

} // namespace

FileStamp FileStamp::fromStatus(const struct stat& status) {
    FileStamp stamp;
    stamp.device_ = status.st_dev;
    stamp.inode_ = status.st_ino;
    stamp.size_ = static_cast<std::uint64_t>(status.st_size);
    stamp.modifiedNanoseconds_ = nanoseconds(status.st_mtim);
    stamp.changedNanoseconds_ = nanoseconds(status.st_ctim);
    return stamp;
}

std::optional<FileStamp> FileStamp::ofFile(const std::filesystem::path& path) {
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    return fromStatus(status);
}

std::optional<FileStamp> FileStamp::ofDescriptor(int descriptor) {
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    return fromStatus(status);
}

bool FileStamp::isSettled() const {
    constexpr std::int64_t longestStepNanoseconds = 50'000'000;
    const std::int64_t now =
        std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::system_clock::now().time_since_epoch())
            .count();
    const std::int64_t age = now - changedNanoseconds_;
    // A change time in the future means that the clock was set back; waiting for it would mean rereading the file every
    // time.
    return age > longestStepNanoseconds || age < -longestStepNanoseconds;
}
