// Every heap block of the process is wiped when it is given back, whoever gives it back.
//
// A pasted or otherwise delivered text passes through buffers of the toolkit and of the libraries under it (the X
// connection, the D-Bus connection, byte arrays and strings of Qt) before the secure field gets it. Those are freed as
// they are, and a freed block keeps what it held until somebody happens to be given it. The C library lets a program
// put functions of its own in the place of these, for itself and for every library that it loads; the blocks still
// come from the allocator behind them and go back to it: the C library's, or one that was preloaded in its place. This
// file belongs to the executable alone: a library would not be asked first, and the sanitizers bring an allocator of
// their own.
//
// Not taken: the C library's own setting for this, mallopt(M_PERTURB). It passes over the blocks that a thread keeps
// for itself, which are most, and spares the last eight bytes of the others.

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

/// Where the blocks come from and go back to.
struct Allocator {
    GiveBack* free = nullptr;
    GiveBack* deleteObject = nullptr;
    GiveBack* deleteArray = nullptr;
    decltype(::realloc)* resize = nullptr;
    /// Null where the allocator does not tell the size of its blocks.
    decltype(::malloc_usable_size)* usableSize = nullptr;
};

bool isInLibraryOfMalloc(void* function) {
    Dl_info here{};
    Dl_info there{};
    return dladdr(function, &here) != 0 && dladdr(reinterpret_cast<void*>(::malloc), &there) != 0 &&
           here.dli_fbase == there.dli_fbase;
}

/// A function of the allocator in use, or null where it has no such function: another one's would know nothing of its
/// blocks. That of the C library for debugging is found by the version of its names alone.
template<typename Function>
Function* nextOfAllocator(const char* name) {
    void* const found = reinterpret_cast<void*>(nextDefinition<Function>(name));
    // As the C library for x86-64 has it, and for arm64.
    for (void* const function :
         {found, dlvsym(RTLD_NEXT, name, "GLIBC_2.2.5"), dlvsym(RTLD_NEXT, name, "GLIBC_2.17")}) {
        if (isInLibraryOfMalloc(function)) {
            return reinterpret_cast<Function*>(function);
        }
    }
    return nullptr;
}

/// The allocator's, or the next one where what was preloaded has only the function that hands blocks out: it passes on.
template<typename Function>
Function* nextFor(const char* name) {
    auto* const function = nextOfAllocator<Function>(name);
    return function == nullptr ? nextDefinition<Function>(name) : function;
}

Allocator findAllocator() {
    auto* const free = nextFor<GiveBack>("free");
    // The operators of the C++ library end in free(), but an allocator may have its own.
    auto* const deleteObject = nextOfAllocator<GiveBack>("_ZdlPv");
    auto* const deleteArray = nextOfAllocator<GiveBack>("_ZdaPv");
    return {.free = free,
            .deleteObject = deleteObject == nullptr ? free : deleteObject,
            .deleteArray = deleteArray == nullptr ? free : deleteArray,
            .resize = nextFor<decltype(::realloc)>("realloc"),
            .usableSize = nextOfAllocator<decltype(::malloc_usable_size)>("malloc_usable_size")};
}

/// Found when the first block is given back, which happens while libraries are set up, before there are threads. Null
/// during the search, which may itself give back the text of an error of an earlier one.
const Allocator* allocator() {
    static constinit Allocator found;
    static constinit bool isSearched = false;
    if (!std::exchange(isSearched, true)) {
        found = findAllocator();
    }
    return found.free == nullptr ? nullptr : &found;
}

/// With what the allocator rounded up: the block of whoever had it before may have reached that far. 0 where the
/// allocator does not tell, as some do until they have set themselves up.
std::size_t sizeOf(void* block, const Allocator& allocator) {
    return allocator.usableSize == nullptr ? 0 : allocator.usableSize(block);
}

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
    // The allocator is not asked to shrink a block, since it may move it and leave behind what was in it. The end of a
    // large one costs nothing once its pages are given back.
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

/// Some allocators have one that does not come by realloc().
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
