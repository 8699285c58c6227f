#include "AmbrelRecoveryAppSupport/SecretBytes.h"

#include "Support/ChildProcess.h"
#include "Support/TestFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <new>
#include <sstream>
#include <string>
#include <utility>

#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

std::string textOf(const SecretBytes& bytes) {
    std::string text;
    for (const std::byte byte : bytes.bytes()) {
        text += static_cast<char>(byte);
    }
    return text;
}

SecretBytes secret(std::string_view text) {
    return SecretBytes::copyOf(std::as_bytes(std::span(text.data(), text.size())));
}

/// What the system has noted about the memory at `address`, in its two-letter words.
std::string memoryFlags(const void* address) {
    const auto wanted = reinterpret_cast<std::uintptr_t>(address);
    std::istringstream maps(TestFiles::read("/proc/self/smaps"));
    bool found = false;
    for (std::string line; std::getline(maps, line);) {
        std::istringstream words(line);
        std::uintptr_t start = 0;
        std::uintptr_t end = 0;
        char dash = 0;
        if (words >> std::hex >> start >> dash >> end && dash == '-') {
            found = start <= wanted && wanted < end;
        } else if (found && line.starts_with("VmFlags:")) {
            return line + " ";
        }
    }
    return "";
}

} // namespace

TEST(SecretBytesTest, isEmptyByDefault) {
    const SecretBytes bytes;
    EXPECT_TRUE(bytes.empty());
    EXPECT_EQ(bytes.size(), 0U);
    EXPECT_TRUE(bytes.bytes().empty());
}

TEST(SecretBytesTest, startsAsZeros) {
    for (const std::size_t size : {1U, 4095U, 4096U, 4097U, 100000U}) {
        const SecretBytes bytes(size);
        EXPECT_EQ(bytes.size(), size);
        EXPECT_FALSE(bytes.empty());
        EXPECT_TRUE(std::ranges::all_of(bytes.bytes(), [](std::byte byte) { return byte == std::byte{0}; }));
    }
}

TEST(SecretBytesTest, isEmptyWithoutASize) {
    EXPECT_TRUE(SecretBytes(0).empty());
    EXPECT_TRUE(secret("").empty());
}

TEST(SecretBytesTest, canBeWrittenInPlace) {
    SecretBytes bytes(3);
    bytes.bytes()[0] = std::byte{'a'};
    bytes.bytes()[2] = std::byte{'c'};
    EXPECT_EQ(textOf(bytes), std::string("a\0c", 3));
}

TEST(SecretBytesTest, copiesOnRequest) {
    const SecretBytes original = secret("secret");
    SecretBytes copy = SecretBytes::copyOf(original.bytes());
    EXPECT_NE(copy.bytes().data(), original.bytes().data());
    copy.bytes()[0] = std::byte{'S'};
    EXPECT_EQ(textOf(original), "secret");
    EXPECT_EQ(textOf(copy), "Secret");
}

TEST(SecretBytesTest, movesWithoutACopy) {
    SecretBytes original = secret("secret");
    const std::byte* const address = original.bytes().data();
    SecretBytes moved(std::move(original));
    EXPECT_EQ(moved.bytes().data(), address);
    SecretBytes assigned = secret("another");
    assigned = std::move(moved);
    EXPECT_EQ(assigned.bytes().data(), address);
    EXPECT_EQ(textOf(assigned), "secret");
}

TEST(SecretBytesTest, isEmptyAfterItWasMovedFrom) {
    SecretBytes original = secret("secret");
    const SecretBytes moved(std::move(original));
    // What a moved-from secret holds is part of its contract.
    EXPECT_TRUE(original.empty()); // NOLINT(bugprone-use-after-move)
    original = secret("again");
    EXPECT_EQ(textOf(original), "again");
    SecretBytes assigned;
    assigned = std::move(original);
    EXPECT_TRUE(original.empty()); // NOLINT(bugprone-use-after-move)
}

TEST(SecretBytesTest, survivesAnAssignmentToItself) {
    SecretBytes bytes = secret("secret");
    SecretBytes& same = bytes;
    bytes = std::move(same);
    EXPECT_EQ(textOf(bytes), "secret");
}

TEST(SecretBytesTest, isEmptyAfterWiping) {
    SecretBytes bytes = secret("secret");
    bytes.wipe();
    EXPECT_TRUE(bytes.empty());
    bytes.wipe();
    EXPECT_TRUE(bytes.empty());
}

TEST(SecretBytesTest, hasPagesOfItsOwn) {
    const SecretBytes first = secret("first");
    const SecretBytes second = secret("second");
    const auto page = [](const SecretBytes& bytes) {
        return reinterpret_cast<std::uintptr_t>(bytes.bytes().data()) /
               static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    };
    EXPECT_NE(page(first), page(second));
}

TEST(SecretBytesTest, staysOutOfCoreDumps) {
    const SecretBytes bytes = secret("secret");
    EXPECT_NE(memoryFlags(bytes.bytes().data()).find(" dd "), std::string::npos);
}

TEST(SecretBytesTest, staysOutOfSwapSpaceIfTheProcessMayLockMemory) {
    const SecretBytes bytes = secret("secret");
    // Not every process may: what the system grants the test it must grant the secret.
    const auto size = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    void* const page = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(page, MAP_FAILED);
    mlock(page, size);
    const auto isLocked = [](const void* address) { return memoryFlags(address).find(" lo ") != std::string::npos; };
    EXPECT_EQ(isLocked(bytes.bytes().data()), isLocked(page));
    munmap(page, size);
}

TEST(SecretBytesTest, worksIfNoMemoryMayBeLocked) {
    const std::string outcome = ChildProcess::outcome([] {
        const rlimit none{};
        setrlimit(RLIMIT_MEMLOCK, &none);
        ChildProcess::dropPrivileges();
        return textOf(secret("secret"));
    });
    EXPECT_EQ(outcome, "secret");
}

TEST(SecretBytesTest, refusesSizesBeyondAnyMemory) {
    for (const std::size_t size : {std::numeric_limits<std::size_t>::max(), std::numeric_limits<std::size_t>::max() / 2,
                                   std::numeric_limits<std::size_t>::max() - 4095}) {
        EXPECT_THROW(SecretBytes{size}, std::bad_alloc) << size;
    }
}
