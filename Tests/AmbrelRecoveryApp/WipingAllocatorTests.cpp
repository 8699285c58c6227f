// This program contains the allocator of the application; every block of it is wiped, those of its libraries too.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <span>
#include <string>

#include <malloc.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr std::byte mark{0xA7};
/// The allocator notes its own things in the first bytes of a free block.
constexpr std::size_t notes = 32;
constexpr std::size_t blockSizes[] = {64, 1000, 5000, 100'000};

/// The compiler knows what becomes of a block, and would leave out what only these tests look at.
void* unknownToCompiler(void* block) {
    void* volatile hidden = block;
    return hidden;
}

std::span<std::byte> wholeBlock(void* block) {
    return {static_cast<std::byte*>(block), malloc_usable_size(block)};
}

void* markedBlock(std::size_t size) {
    void* const block = unknownToCompiler(std::malloc(size));
    std::ranges::fill(wholeBlock(block), mark);
    return unknownToCompiler(block);
}

/// How many marked bytes are in the next block of this size, which is the one that was given back last.
std::ptrdiff_t marksInNextBlock(std::size_t size) {
    void* const block = unknownToCompiler(std::malloc(size));
    const std::ptrdiff_t count = std::ranges::count(wholeBlock(block).subspan(notes), mark);
    std::free(block);
    return count;
}

} // namespace

TEST(WipingAllocatorTests, wipesWhatIsGivenBack) {
    for (const std::size_t size : blockSizes) {
        std::free(markedBlock(size));
        EXPECT_EQ(marksInNextBlock(size), 0) << size;
    }
    std::free(nullptr);
}

TEST(WipingAllocatorTests, wipesABlockThatGrowsElsewhere) {
    for (const std::size_t size : blockSizes) {
        void* const old = markedBlock(size);
        // Keeps the block from growing where it is.
        void* const neighbour = std::malloc(size);
        void* const larger = std::realloc(old, 4 * size);
        EXPECT_EQ(std::ranges::count(wholeBlock(larger).first(size), mark), static_cast<std::ptrdiff_t>(size));
        EXPECT_EQ(marksInNextBlock(size), 0) << size;
        std::free(larger);
        std::free(neighbour);
    }
}

TEST(WipingAllocatorTests, wipesTheEndOfABlockThatShrinks) {
    void* const block = std::realloc(markedBlock(5000), 1000);
    EXPECT_EQ(std::ranges::count(wholeBlock(block).first(1000), mark), 1000);
    EXPECT_EQ(std::ranges::count(wholeBlock(block).subspan(1000), mark), 0);
    EXPECT_EQ(marksInNextBlock(3000), 0);
    std::free(block);
}

TEST(WipingAllocatorTests, growsFromNothing) {
    void* const block = std::realloc(nullptr, 100);
    ASSERT_NE(block, nullptr);
    EXPECT_GE(wholeBlock(block).size(), 100U);
    std::free(block);
}

TEST(WipingReceiveTests, wipesWhatTheBufferHeldAndReceivesTheMessage) {
    int ends[2];
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
    std::string buffer(100, 's');
    iovec piece{buffer.data(), buffer.size()};
    msghdr message{};
    message.msg_iov = &piece;
    message.msg_iovlen = 1;
    EXPECT_EQ(recvmsg(ends[1], &message, MSG_DONTWAIT), -1);
    EXPECT_EQ(buffer, std::string(100, '\0'));
    buffer.assign(100, 's');
    ASSERT_EQ(write(ends[0], "news", 4), 4);
    EXPECT_EQ(recvmsg(ends[1], &message, 0), 4);
    EXPECT_EQ(buffer, "news" + std::string(96, '\0'));
    close(ends[0]);
    close(ends[1]);
}
