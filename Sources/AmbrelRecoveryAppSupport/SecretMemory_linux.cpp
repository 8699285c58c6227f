#include "AmbrelRecoveryAppSupport/SecretMemory.h"

#include <cstring>
#include <new>

#include <sys/mman.h>
#include <unistd.h>

namespace {

std::size_t wholePages(std::size_t size) {
    const auto pageSize = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    return (size + pageSize - 1) / pageSize * pageSize;
}

} // namespace

std::byte* SecretMemory::allocate(std::size_t size) {
    const std::size_t length = wholePages(size);
    void* const pages = mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pages == MAP_FAILED) {
        throw std::bad_alloc();
    }
    // Failures are ignored: a locked-memory limit of zero is common in containers and must not prevent a recovery.
    static_cast<void>(mlock(pages, length));
    static_cast<void>(madvise(pages, length, MADV_DONTDUMP));
    return static_cast<std::byte*>(pages);
}

void SecretMemory::release(std::byte* pages, std::size_t size) noexcept {
    munmap(pages, wholePages(size));
}

void SecretMemory::wipe(std::span<std::byte> bytes) noexcept {
    explicit_bzero(bytes.data(), bytes.size());
}
