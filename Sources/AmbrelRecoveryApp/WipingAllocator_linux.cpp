// Every heap block of the process is wiped when it is given back, whoever gives it back.
//
// A pasted or otherwise delivered text passes through buffers of the toolkit and of the libraries under it (the X
// connection, the D-Bus connection, byte arrays and strings of Qt) before the secure field gets it. Those are freed as
// they are, and a freed block keeps what it held until somebody happens to be given it. The C library lets a program
// put functions of its own in the place of these, for itself and for every library that it loads; the blocks still
// come from the C library and go back to it. This file belongs to the executable alone: a library would not be asked
// first, and the sanitizers bring an allocator of their own.
//
// Not taken: the C library's own setting for this, mallopt(M_PERTURB). It passes over the blocks that a thread keeps
// for itself, which are most, and spares the last eight bytes of the others.

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

// The C library's own functions under the names that stay theirs.
// NOLINTBEGIN(bugprone-reserved-identifier): the names are the C library's.
extern "C" void __libc_free(void* block);
extern "C" void* __libc_realloc(void* block, std::size_t size);
// NOLINTEND(bugprone-reserved-identifier)

namespace {

/// From this size on, whole pages go back to the system, which hands them out again filled with zeros. Overwriting them
/// would make resident what was never used, and some blocks are reserved many times larger than what is put into them:
/// the parser of the documents takes eight bytes for each byte of text. In a smaller block that is no matter, and
/// overwriting it costs less than having its pages brought back one by one.
constexpr std::size_t leastReturned = std::size_t{1} << 20;

/// Gives the whole pages of the block back. False where the system refuses, as it does for locked pages.
bool returnPages(std::byte* first, std::size_t size) {
    const int error = errno;
    const bool returned = madvise(first, size, MADV_DONTNEED) == 0;
    errno = error;
    return returned;
}

void wipe(std::byte* start, std::size_t size) {
    if (size >= leastReturned) {
        const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        const std::size_t before = -reinterpret_cast<std::uintptr_t>(start) % page;
        const std::size_t after = (size - before) % page;
        if (returnPages(start + before, size - before - after)) {
            explicit_bzero(start, before);
            explicit_bzero(start + size - after, after);
            return;
        }
    }
    explicit_bzero(start, size);
}

} // namespace

extern "C" void free(void* block) noexcept {
    // Also what the allocator rounded up: the block of whoever had it before may have reached that far.
    wipe(static_cast<std::byte*>(block), malloc_usable_size(block));
    __libc_free(block);
}

extern "C" void* realloc(void* block, std::size_t size) noexcept {
    if (block == nullptr) {
        return malloc(size);
    }
    const std::size_t held = malloc_usable_size(block);
    if (size <= held) {
        // The block stays where it is, but its end may be given back, and of size 0 the whole.
        wipe(static_cast<std::byte*>(block) + size, held - size);
        return __libc_realloc(block, size);
    }
    void* const larger = malloc(size);
    if (larger != nullptr) {
        std::memcpy(larger, block, held);
        free(block);
    }
    return larger;
}
