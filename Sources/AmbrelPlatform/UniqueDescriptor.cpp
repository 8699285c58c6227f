#include "AmbrelPlatform/UniqueDescriptor.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

UniqueDescriptor::UniqueDescriptor(UniqueDescriptor&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)) {}

UniqueDescriptor& UniqueDescriptor::operator=(UniqueDescriptor other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
}

UniqueDescriptor::~UniqueDescriptor() {
    close();
}

bool UniqueDescriptor::close() noexcept {
    const int descriptor = std::exchange(descriptor_, -1);
    // An interrupted close has still closed the descriptor; closing it again could close another thread's.
    return descriptor < 0 || ::close(descriptor) == 0 || errno == EINTR;
}

UniqueDescriptor aboveStandardStreams(UniqueDescriptor descriptor) {
    if (!descriptor || descriptor.get() > STDERR_FILENO) {
        return descriptor;
    }
    return UniqueDescriptor(fcntl(descriptor.get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}
