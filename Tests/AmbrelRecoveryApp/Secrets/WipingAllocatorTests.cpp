// This program contains the allocator of the application; every block of it is wiped, those of its libraries too.

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <limits>
#include <span>
#include <string>

#include <malloc.h>
#include <sys/mman.h>
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

constexpr std::size_t hugeSize = std::size_t{512} << 20;
constexpr std::size_t mebibyte = std::size_t{1} << 20;

/// The most memory that was resident since the last call of forgetPeak(), in bytes.
std::size_t peakOfResidentMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        std::size_t kibibytes = 0;
        if (word == "VmHWM:" && status >> kibibytes) {
            return kibibytes * 1024;
        }
    }
    ADD_FAILURE() << "the peak is not known";
    return 0;
}

void forgetPeak() {
    std::ofstream file("/proc/self/clear_refs");
    file << "5" << std::flush;
    EXPECT_TRUE(file.good());
}

/// Blocks so large that their pages go back to the system, of sizes that end in different places of a page. They come
/// from the heap, like small ones, and stay in it when they are given back.
class WipingAllocatorLargeBlockTest : public testing::TestWithParam<std::size_t> {
protected:
    static void SetUpTestSuite() {
        ASSERT_EQ(mallopt(M_MMAP_MAX, 0), 1);
        ASSERT_EQ(mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max()), 1);
    }
    static void TearDownTestSuite() {
        constexpr int ordinaryCount = 65536;
        constexpr int ordinaryThreshold = 128 << 10;
        ASSERT_EQ(mallopt(M_MMAP_MAX, ordinaryCount), 1);
        ASSERT_EQ(mallopt(M_TRIM_THRESHOLD, ordinaryThreshold), 1);
    }

    const std::size_t size_ = GetParam();
    void* const block_ = markedBlock(size_);
};

} // namespace

TEST(WipingAllocatorTest, wipesFreedBlocks) {
    for (const std::size_t size : blockSizes) {
        std::free(markedBlock(size));
        EXPECT_EQ(marksInNextBlock(size), 0) << size;
    }
    std::free(nullptr);
}

TEST(WipingAllocatorTest, wipesTheOldPlaceOfABlockThatMoves) {
    for (const std::size_t size : blockSizes) {
        void* const old = markedBlock(size);
        // Keeps the block from growing where it is.
        void* const neighbor = std::malloc(size);
        void* const larger = std::realloc(old, 4 * size);
        EXPECT_EQ(std::ranges::count(wholeBlock(larger).first(size), mark), static_cast<std::ptrdiff_t>(size));
        EXPECT_EQ(marksInNextBlock(size), 0) << size;
        std::free(larger);
        std::free(neighbor);
    }
}

TEST(WipingAllocatorTest, wipesTheEndOfABlockThatShrinks) {
    void* const block = std::realloc(markedBlock(5000), 1000);
    EXPECT_EQ(std::ranges::count(wholeBlock(block).first(1000), mark), 1000);
    EXPECT_EQ(std::ranges::count(wholeBlock(block).subspan(1000), mark), 0);
    EXPECT_EQ(marksInNextBlock(3000), 0);
    std::free(block);
}

INSTANTIATE_TEST_SUITE_P(, WipingAllocatorLargeBlockTest, testing::Values(5'000'001, 5'001'001, 5'002'001, 5'003'001));

TEST_P(WipingAllocatorLargeBlockTest, areWipedFromEndToEnd) {
    std::free(block_);
    void* const next = unknownToCompiler(std::malloc(size_));
    ASSERT_EQ(next, block_);
    EXPECT_EQ(std::ranges::count(wholeBlock(next).subspan(notes), mark), 0);
    std::free(next);
}

TEST_P(WipingAllocatorLargeBlockTest, keepTheirBeginningWhenTheyShrink) {
    constexpr std::size_t kept = 100'001;
    void* const smaller = std::realloc(block_, kept);
    EXPECT_EQ(std::ranges::count(wholeBlock(smaller).first(kept), mark), static_cast<std::ptrdiff_t>(kept));
    EXPECT_EQ(std::ranges::count(wholeBlock(smaller).subspan(kept), mark), 0);
    EXPECT_EQ(marksInNextBlock(size_ - 2 * kept), 0);
    std::free(smaller);
}

TEST_P(WipingAllocatorLargeBlockTest, areWipedEvenIfTheirPagesAreLocked) {
    if (mlock(block_, size_) != 0) {
        GTEST_SKIP() << "this user may not lock so much memory";
    }
    errno = EDOM;
    std::free(block_);
    EXPECT_EQ(errno, EDOM);
    void* const next = unknownToCompiler(std::malloc(size_));
    ASSERT_EQ(next, block_);
    EXPECT_EQ(std::ranges::count(wholeBlock(next).subspan(notes), mark), 0);
    EXPECT_EQ(munlock(next, size_), 0);
    std::free(next);
}

TEST(WipingAllocatorTest, doesNotMakeUnusedMemoryResident) {
    forgetPeak();
    const std::size_t before = peakOfResidentMemory();
    void* const block = unknownToCompiler(std::malloc(hugeSize));
    std::ranges::fill(wholeBlock(block).first(mebibyte), mark);
    void* const smaller = unknownToCompiler(std::realloc(block, hugeSize / 2));
    std::free(smaller);
    EXPECT_LT(peakOfResidentMemory(), before + 32 * mebibyte);
}

TEST(WipingAllocatorTest, growsFromNothing) {
    void* const block = std::realloc(nullptr, 100);
    ASSERT_NE(block, nullptr);
    EXPECT_GE(wholeBlock(block).size(), 100U);
    std::free(block);
}

TEST(WipingAllocatorTest, wipesABlockThatShrinksToNothing) {
    for (const std::size_t size : blockSizes) {
        EXPECT_EQ(std::realloc(markedBlock(size), 0), nullptr);
        EXPECT_EQ(marksInNextBlock(size), 0) << size;
    }
}

TEST(WipingAllocatorTest, refusesAnImpossibleSize) {
    // Not known to the compiler, which would refuse it first.
    volatile std::size_t tooMany = std::numeric_limits<std::size_t>::max() / 2 + 2;
    errno = 0;
    EXPECT_EQ(reallocarray(nullptr, tooMany, 2), nullptr);
    EXPECT_EQ(errno, ENOMEM);
}

TEST(WipingReceiveTest, wipesWhatTheBufferHeldAndReceivesTheMessage) {
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
