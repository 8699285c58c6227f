#include "AmbrelRecoveryAppSupport/MadeDirectory.h"

#include "AmbrelPlatform/RetryInterrupted.h"

#include <cerrno>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

UniqueDescriptor openMadeDirectory(const std::filesystem::path& path) {
    const UniqueDescriptor place(
        retryInterrupted([&] { return open(path.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC); }));
    struct stat status {};
    if (!place || fstat(place.get(), &status) != 0) {
        return {};
    }
    if (status.st_uid != geteuid() || (status.st_mode & (S_IRWXG | S_IRWXO)) != 0) {
        errno = EPERM;
        return {};
    }
    // Refers to the directory itself, whose permissions may prevent opening it in another way.
    const std::string itself = "/proc/self/fd/" + std::to_string(place.get());
    if (retryInterrupted([&] { return chmod(itself.c_str(), S_IRWXU); }) != 0) {
        return {};
    }
    return aboveStandardStreams(UniqueDescriptor(
        retryInterrupted([&] { return openat(place.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC); })));
}
