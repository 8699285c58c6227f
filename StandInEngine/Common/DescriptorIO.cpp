#include "Common/DescriptorIO.h"

#include "Common/StopRequest.h"

#include <cerrno>

#include <unistd.h>

std::optional<std::size_t> DescriptorIO::readFully(int descriptor, std::span<std::uint8_t> buffer) {
    std::size_t filled = 0;
    while (filled < buffer.size()) {
        const ssize_t count = ::read(descriptor, buffer.data() + filled, buffer.size() - filled);
        if (count > 0) {
            filled += static_cast<std::size_t>(count);
        } else if (count == 0) {
            break;
        } else if (errno != EINTR) {
            return std::nullopt;
        } else {
            StopRequest::throwIfRequested();
        }
    }
    return filled;
}

bool DescriptorIO::writeFully(int descriptor, ByteView bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        if (count >= 0) {
            bytes = bytes.subspan(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return false;
        } else {
            StopRequest::throwIfRequested();
        }
    }
    return true;
}
