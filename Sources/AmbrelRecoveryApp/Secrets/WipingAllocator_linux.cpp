// Wipes every heap block of the process when it is freed, no matter by whom.
//
// Text that is pasted or delivered in another way passes through buffers of Qt and of the libraries below it (the X
// connection, the D-Bus connection, Qt's byte arrays and strings) before it reaches the secure field. Those are freed
// without being wiped, and a freed block keeps its contents until it is allocated again. The C library lets a program
// replace the functions below, for itself and for every library that it loads. The blocks still come from the
// underlying allocator and return to it: the C library's, or one that was preloaded in its place. This file belongs in
// the executable alone: definitions in a library would not be found first, and sanitizers bring their own allocator.
//
// Not used: the C library's own setting for this, mallopt(M_PERTURB). It skips the blocks in a thread's cache, which
// are most, and the last eight bytes of the others.

#include "AmbrelRecoveryApp/Secrets/NextDefinition.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

#include <dlfcn.h>
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

namespace {

using GiveBack = void(void* block);

/// The underlying allocator.
struct Allocator {
    GiveBack* free = nullptr;
    GiveBack* deleteObject = nullptr;
    GiveBack* deleteArray = nullptr;
    decltype(::realloc)* resize = nullptr;
    /// Null if the allocator does not report the size of its blocks.
    decltype(::malloc_usable_size)* usableSize = nullptr;
};

bool isInLibraryOfMalloc(void* function) {
    Dl_info here{};
    Dl_info there{};
    return dladdr(function, &here) != 0 && dladdr(reinterpret_cast<void*>(::malloc), &there) != 0 &&
           here.dli_fbase == there.dli_fbase;
}

/// Returns a function of the allocator in use, or null if it has no such function: another allocator's would not know
/// its blocks. The C library's debugging allocator is found only with the version of the symbol.
template<typename Function>
Function* nextOfAllocator(const char* name) {
    void* const found = reinterpret_cast<void*>(nextDefinition<Function>(name));
    // The versions in the C library for x86-64 and for arm64.
    for (void* const function :
         {found, dlvsym(RTLD_NEXT, name, "GLIBC_2.2.5"), dlvsym(RTLD_NEXT, name, "GLIBC_2.17")}) {
        if (isInLibraryOfMalloc(function)) {
            return reinterpret_cast<Function*>(function);
        }
    }
    return nullptr;
}

/// Returns the allocator's function or, if a preloaded library replaces only the allocating function, the next
/// definition, to which that library forwards.
template<typename Function>
Function* nextFor(const char* name) {
    auto* const function = nextOfAllocator<Function>(name);
    return function == nullptr ? nextDefinition<Function>(name) : function;
}

Allocator findAllocator() {
    auto* const free = nextFor<GiveBack>("free");
    // The C++ library's operators call free(), but an allocator may bring its own.
    auto* const deleteObject = nextOfAllocator<GiveBack>("_ZdlPv");
    auto* const deleteArray = nextOfAllocator<GiveBack>("_ZdaPv");
    return {.free = free,
            .deleteObject = deleteObject == nullptr ? free : deleteObject,
            .deleteArray = deleteArray == nullptr ? free : deleteArray,
            .resize = nextFor<decltype(::realloc)>("realloc"),
            .usableSize = nextOfAllocator<decltype(::malloc_usable_size)>("malloc_usable_size")};
}

/// Looked up when the first block is freed, which happens while libraries are initialized, before there are threads.
/// Null during the lookup, which may itself free the message of an earlier lookup error.
const Allocator* allocator() {
    static constinit Allocator found;
    static constinit bool isSearched = false;
    if (!std::exchange(isSearched, true)) {
        found = findAllocator();
    }
    return found.free == nullptr ? nullptr : &found;
}

/// Includes what the allocator rounded up, since an earlier use of the block may have reached that far. 0 if the
/// allocator does not report the size, as with some until they are initialized.
std::size_t sizeOf(void* block, const Allocator& allocator) {
    return allocator.usableSize == nullptr ? 0 : allocator.usableSize(block);
}

/// From this size on, whole pages are returned to the system, which provides them again filled with zeros. Overwriting
/// them would make resident what was never used, and some blocks are reserved many times larger than their contents:
/// the document parser reserves eight bytes for each byte of text. In a smaller block this does not matter, and
/// overwriting it costs less than faulting its pages in again one by one.
constexpr std::size_t leastReturned = std::size_t{1} << 20;

/// Returns whole pages to the system. False if the system refuses, as it does for locked pages.
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

void giveBack(void* block, GiveBack* Allocator::*way) {
    const Allocator* const next = allocator();
    if (block != nullptr && next != nullptr) {
        wipe(static_cast<std::byte*>(block), sizeOf(block, *next));
        (next->*way)(block);
    }
}

} // namespace

extern "C" void free(void* block) noexcept {
    giveBack(block, &Allocator::free);
}

extern "C" void* realloc(void* block, std::size_t size) noexcept {
    if (block == nullptr) {
        return malloc(size);
    }
    if (size == 0) {
        free(block);
        return nullptr;
    }
    const Allocator* const next = allocator();
    const std::size_t held = sizeOf(block, *next);
    if (held == 0) {
        return next->resize(block, size);
    }
    // Blocks are never shrunk by the allocator, which may move them and leave their contents behind. The end of a large
    // block costs nothing once its pages are returned.
    if (size <= held && (size >= held / 2 || held >= leastReturned)) {
        wipe(static_cast<std::byte*>(block) + size, held - size);
        return block;
    }
    void* const moved = malloc(size);
    if (moved != nullptr) {
        std::memcpy(moved, block, std::min(size, held));
        free(block);
    }
    return moved;
}

/// Some allocators have one that does not call realloc().
extern "C" void* reallocarray(void* block, std::size_t count, std::size_t size) noexcept {
    std::size_t whole = 0;
    if (__builtin_mul_overflow(count, size, &whole)) {
        errno = ENOMEM;
        return nullptr;
    }
    return realloc(block, whole);
}

// NOLINTBEGIN(misc-new-delete-overloads): what is new comes from the allocator as it is.
void operator delete(void* block) noexcept {
    giveBack(block, &Allocator::deleteObject);
}

void operator delete[](void* block) noexcept {
    giveBack(block, &Allocator::deleteArray);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
    giveBack(block, &Allocator::deleteObject);
}

void operator delete[](void* block, std::size_t /*size*/) noexcept {
    giveBack(block, &Allocator::deleteArray);
}

void operator delete(void* block, std::align_val_t /*alignment*/) noexcept {
    giveBack(block, &Allocator::deleteObject);
}

void operator delete[](void* block, std::align_val_t /*alignment*/) noexcept {
    giveBack(block, &Allocator::deleteArray);
}

void operator delete(void* block, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
    giveBack(block, &Allocator::deleteObject);
}

void operator delete[](void* block, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
    giveBack(block, &Allocator::deleteArray);
}

void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept {
    giveBack(block, &Allocator::deleteObject);
}

void operator delete[](void* block, const std::nothrow_t& /*tag*/) noexcept {
    giveBack(block, &Allocator::deleteArray);
}

void operator delete(void* block, std::align_val_t /*alignment*/, const std::nothrow_t& /*tag*/) noexcept {
    giveBack(block, &Allocator::deleteObject);
}

void operator delete[](void* block, std::align_val_t /*alignment*/, const std::nothrow_t& /*tag*/) noexcept {
    giveBack(block, &Allocator::deleteArray);
}
// NOLINTEND(misc-new-delete-overloads)
