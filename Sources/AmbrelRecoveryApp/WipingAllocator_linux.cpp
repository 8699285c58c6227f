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

#include <cstddef>
#include <cstdlib>
#include <cstring>

#include <malloc.h>

// The C library's own functions under the names that stay theirs.
// NOLINTBEGIN(bugprone-reserved-identifier): the names are the C library's.
extern "C" void __libc_free(void* block);
extern "C" void* __libc_realloc(void* block, std::size_t size);
// NOLINTEND(bugprone-reserved-identifier)

extern "C" void free(void* block) noexcept {
    // Also what the allocator rounded up: the block of whoever had it before may have reached that far.
    explicit_bzero(block, malloc_usable_size(block));
    __libc_free(block);
}

extern "C" void* realloc(void* block, std::size_t size) noexcept {
    if (block == nullptr) {
        return malloc(size);
    }
    const std::size_t held = malloc_usable_size(block);
    if (size <= held) {
        // The block stays where it is, but its end may be given back, and of size 0 the whole.
        explicit_bzero(static_cast<std::byte*>(block) + size, held - size);
        return __libc_realloc(block, size);
    }
    void* const larger = malloc(size);
    if (larger != nullptr) {
        std::memcpy(larger, block, held);
        free(block);
    }
    return larger;
}
