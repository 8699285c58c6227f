#include "ReleasedPages.h"

#include <algorithm>
#include <span>

namespace {

std::vector<ReleasedPages::Record> released;

} // namespace

void ReleasedPages::reset() {
    released.clear();
}

const std::vector<ReleasedPages::Record>& ReleasedPages::records() {
    return released;
}

// The names are the linker's.
extern "C" {

int __real_munmap(void*, size_t);

int __wrap_munmap(void* address, size_t length) {
    const std::span pages(static_cast<const std::byte*>(address), length);
    released.push_back(
        {address, length, std::ranges::all_of(pages, [](std::byte byte) { return byte == std::byte{0}; })});
    return __real_munmap(address, length);
}

} // extern "C"
