// An allocator to be preloaded: it looks at every block that it gets back, and never hands one out again.

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>

#include <sys/mman.h>

namespace {

/// Stands before each block. The C library's allocator would take it for notes of its own that make no sense.
struct Header {
    std::size_t size;
    std::size_t mark;
};

constexpr std::size_t ownMark = 0x5151515151515151;
constexpr std::size_t leastAlignment = 16;
constexpr std::size_t arenaSize = std::size_t{1} << 30;

std::atomic<std::size_t> used;
std::atomic<std::size_t> givenBack;
std::atomic<std::size_t> givenBackUnwiped;

std::byte* arena() {
    static std::byte* const start = static_cast<std::byte*>(
        mmap(nullptr, arenaSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0));
    return start;
}

void* allocate(std::size_t alignment, std::size_t size) {
    const std::size_t need = size + alignment + sizeof(Header);
    const std::size_t offset = used.fetch_add((need + leastAlignment - 1) / leastAlignment * leastAlignment);
    if (size > arenaSize || offset + need > arenaSize) {
        errno = ENOMEM;
        return nullptr;
    }
    const auto first = reinterpret_cast<std::uintptr_t>(arena() + offset + sizeof(Header));
    std::byte* const block = arena() + offset + sizeof(Header) + (alignment - first % alignment) % alignment;
    new (block - sizeof(Header)) Header{size, ownMark};
    return block;
}

std::size_t sizeOf(void* block) {
    const Header* const header = reinterpret_cast<Header*>(static_cast<std::byte*>(block) - sizeof(Header));
    if (header->mark != ownMark) {
        __builtin_trap();
    }
    return header->size;
}

} // namespace

extern "C" {

[[gnu::visibility("default")]] std::size_t preloadedAllocatorGotBack() {
    return givenBack;
}
[[gnu::visibility("default")]] std::size_t preloadedAllocatorGotBackUnwiped() {
    return givenBackUnwiped;
}

void* malloc(std::size_t size) noexcept {
    return allocate(leastAlignment, size);
}
void* calloc(std::size_t count, std::size_t size) noexcept {
    return allocate(leastAlignment, count * size);
}
void* memalign(std::size_t alignment, std::size_t size) noexcept {
    return allocate(alignment, size);
}
void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
    return allocate(alignment, size);
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) noexcept {
    *block = allocate(alignment, size);
    return *block == nullptr ? ENOMEM : 0;
}

void free(void* block) noexcept {
    if (block != nullptr) {
        const std::byte* const first = static_cast<std::byte*>(block);
        ++givenBack;
        givenBackUnwiped +=
            std::any_of(first, first + sizeOf(block), [](std::byte byte) { return byte != std::byte{}; });
    }
}

/// Moves every block.
void* realloc(void* block, std::size_t size) noexcept {
    if (size == 0) {
        free(block);
        return nullptr;
    }
    void* const moved = malloc(size);
    if (block != nullptr && moved != nullptr) {
        std::memcpy(moved, block, std::min(size, sizeOf(block)));
        free(block);
    }
    return moved;
}

void* reallocarray(void* block, std::size_t count, std::size_t size) noexcept {
    return realloc(block, count * size);
}

#ifdef REPORTS_SIZES
std::size_t malloc_usable_size(void* block) noexcept {
    return block == nullptr ? 0 : sizeOf(block);
}
#endif

} // extern "C"

void* operator new(std::size_t size) {
    return malloc(size);
}
void* operator new[](std::size_t size) {
    return malloc(size);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    return memalign(std::size_t(alignment), size);
}
void operator delete(void* block) noexcept {
    free(block);
}
void operator delete[](void* block) noexcept {
    free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    free(block);
}
void operator delete(void* block, std::align_val_t) noexcept {
    free(block);
}
void operator delete(void* block, std::size_t, std::align_val_t) noexcept {
    free(block);
}
