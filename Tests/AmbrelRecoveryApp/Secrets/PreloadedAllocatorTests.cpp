// This program contains the allocator of the application, and another one is preloaded.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include <dlfcn.h>

namespace {

struct alignas(64) Aligned {
    char text[64];
};

/// The compiler knows what becomes of a block, and would leave out what only the allocator sees.
template<typename Type>
Type* unknownToCompiler(Type* block) {
    Type* volatile hidden = block;
    return hidden;
}

std::size_t count(const char* name) {
    auto* const function = reinterpret_cast<std::size_t (*)()>(dlsym(RTLD_DEFAULT, name));
    return function == nullptr ? 0 : function();
}

char* filled(void* block, std::size_t size) {
    return static_cast<char*>(std::memset(unknownToCompiler(block), 's', size));
}

/// Gives back blocks in every way there is, and counts them.
std::size_t giveBack() {
    std::free(filled(std::malloc(100), 100));
    std::free(filled(std::calloc(10, 10), 100));
    std::free(filled(std::aligned_alloc(64, 128), 128));
    std::free(filled(std::malloc(3 << 20), 3 << 20));
    std::free(unknownToCompiler(strdup("a secret of the C library")));
    delete unknownToCompiler(new std::string(100, 's'));
    delete[] filled(new char[100], 100);
    delete reinterpret_cast<Aligned*>(filled(new Aligned, sizeof(Aligned)));
    operator delete(filled(operator new(100), 100));
    constexpr std::size_t givenBackAbove = 10;
    return givenBackAbove;
}

/// Moves blocks to larger and to smaller ones, and counts them.
std::size_t move() {
    std::size_t moves = 0;
    char* block = filled(std::malloc(100), 100);
    for (const std::size_t size : {1000U, 5000U, 2'000'000U, 100U, 40U}) {
        block = unknownToCompiler(static_cast<char*>(std::realloc(block, size)));
        EXPECT_EQ(std::string(block, 40), std::string(40, 's'));
        filled(block, size);
        ++moves;
    }
    block = filled(reallocarray(block, 100, 10), 1000);
    std::free(block);
    return moves + 2;
}

void expectBlocksArePassedOn() {
    const std::size_t before = count("preloadedAllocatorGotBack");
    const std::size_t blocks = giveBack() + move();
    EXPECT_GE(count("preloadedAllocatorGotBack") - before, blocks);
}

} // namespace

TEST(ReportingAllocatorTest, getsEveryBlockBackWiped) {
    ASSERT_GT(count("preloadedAllocatorGotBack"), 0U) << "the allocator is not preloaded";
    expectBlocksArePassedOn();
    EXPECT_EQ(count("preloadedAllocatorGotBackUnwiped"), 0U);
}

TEST(SilentAllocatorTest, getsEveryBlockBack) {
    ASSERT_GT(count("preloadedAllocatorGotBack"), 0U) << "the allocator is not preloaded";
    expectBlocksArePassedOn();
    // Nobody knows how far they reach, so the C library's answer was not taken.
    EXPECT_GT(count("preloadedAllocatorGotBackUnwiped"), 0U);
}

TEST(ForwardingAllocatorTest, isStillCalled) {
    const std::size_t before = count("preloadedAllocatorHandedOut");
    ASSERT_GT(before, 0U) << "the allocator is not preloaded";
    giveBack();
    move();
    EXPECT_GT(count("preloadedAllocatorHandedOut"), before);
}
