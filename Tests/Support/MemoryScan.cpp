#include "Support/MemoryScan.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <sstream>
#include <vector>

#include <sys/uio.h>
#include <unistd.h>

namespace {

using MemoryScan::secretSize;

/// A visible character of ASCII, so that the secret can be typed, too.
unsigned char secretByte(std::size_t index) {
    return static_cast<unsigned char>('!' + (index * 37 + 11) % 94);
}

bool isSecretAt(const unsigned char* place) {
    for (std::size_t index = 0; index < secretSize; ++index) {
        if (place[index] != secretByte(index)) {
            return false;
        }
    }
    return true;
}

int copiesIn(const std::vector<unsigned char>& memory, std::size_t length) {
    int copies = 0;
    const unsigned char* const end = memory.data() + length;
    for (const unsigned char* place = memory.data(); end - place >= static_cast<std::ptrdiff_t>(secretSize); ++place) {
        place = static_cast<const unsigned char*>(
            std::memchr(place, secretByte(0), static_cast<std::size_t>(end - place) - secretSize + 1));
        if (place == nullptr) {
            break;
        }
        copies += isSecretAt(place) ? 1 : 0;
    }
    return copies;
}

/// Through a copy in a buffer that is overwritten, so that the scan leaves nothing to find.
int copiesBetween(std::uintptr_t start, std::uintptr_t end) {
    static std::vector<unsigned char> buffer(std::size_t{1} << 20U);
    static const auto pageSize = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    int copies = 0;
    while (start + secretSize <= end) {
        const iovec here{buffer.data(), std::min(buffer.size(), end - start)};
        const iovec there{reinterpret_cast<void*>(start), here.iov_len}; // NOLINT(performance-no-int-to-ptr)
        const auto length =
            static_cast<std::size_t>(std::max<ssize_t>(0, process_vm_readv(getpid(), &here, 1, &there, 1, 0)));
        if (length < secretSize) {
            // A guard page, as at the end of a stack: nothing can be written to it or read from it.
            start = ((start + length) / pageSize + 1) * pageSize;
            continue;
        }
        copies += copiesIn(buffer, length);
        start += length - secretSize + 1;
    }
    std::memset(buffer.data(), 0, buffer.size());
    return copies;
}

} // namespace

std::string MemoryScan::hiddenSecret() {
    std::string secret(secretSize, '\0');
    writeHiddenSecret(std::as_writable_bytes(std::span(secret)).first<secretSize>());
    return secret;
}

void MemoryScan::writeHiddenSecret(std::span<std::byte, secretSize> place) {
    for (std::size_t index = 0; index < secretSize; ++index) {
        place[index] = static_cast<std::byte>(secretByte(index));
    }
}

int MemoryScan::copiesOfHiddenSecret() {
    // Sanitizers reserve regions of this size that hold no data of the program.
    constexpr std::uintptr_t largestRegion = 1U << 30U;
    std::ifstream maps("/proc/self/maps");
    int copies = 0;
    for (std::string line; std::getline(maps, line);) {
        std::istringstream words(line);
        std::uintptr_t start = 0;
        std::uintptr_t end = 0;
        char dash = 0;
        std::string permissions;
        words >> std::hex >> start >> dash >> end >> permissions;
        if (permissions.starts_with("rw") && end - start < largestRegion) {
            copies += copiesBetween(start, end);
        }
    }
    return copies;
}
