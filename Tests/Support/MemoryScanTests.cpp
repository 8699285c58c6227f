#include "Support/MemoryScan.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <span>

#include <sys/mman.h>
#include <unistd.h>

// Recent C libraries put such a page at the end of a thread's stack, within its mapping.
TEST(MemoryScanTest, findsWhatLiesBehindAGuardPage) {
    constexpr int installGuard = 102; // MADV_GUARD_INSTALL, which the headers of older releases lack
    const auto pageSize = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    void* const pages = mmap(nullptr, 2 * pageSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(pages, MAP_FAILED);
    if (madvise(pages, pageSize, installGuard) != 0) {
        munmap(pages, 2 * pageSize);
        GTEST_SKIP() << "this kernel has no guard pages";
    }
    const std::span page(static_cast<std::byte*>(pages) + pageSize, pageSize);

    MemoryScan::writeHiddenSecret(page.first<MemoryScan::secretSize>());

    EXPECT_EQ(MemoryScan::copiesOfHiddenSecret(), 1);
    munmap(pages, 2 * pageSize);
}
