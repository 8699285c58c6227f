#include "AmbrelPlatform/UniqueDescriptor.h"

#include "Support/ChildProcess.h"
#include "Support/OpenDescriptors.h"

#include <gtest/gtest.h>

#include <utility>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

int openNullDevice() {
    return open("/dev/null", O_RDONLY | O_CLOEXEC);
}

bool isOpen(int descriptor) {
    return openDescriptors().contains(descriptor);
}

} // namespace

TEST(UniqueDescriptorTest, holdsNothingByDefault) {
    UniqueDescriptor none;
    EXPECT_FALSE(none);
    EXPECT_LT(none.get(), 0);
    EXPECT_TRUE(none.close());
    EXPECT_FALSE(UniqueDescriptor(-1));
}

TEST(UniqueDescriptorTest, holdsDescriptorZeroToo) {
    const std::string outcome = ChildProcess::outcome([] {
        UniqueDescriptor zero(STDIN_FILENO);
        return std::string(zero && zero.close() && !isOpen(STDIN_FILENO) ? "" : "not held and closed");
    });
    EXPECT_EQ(outcome, "");
}

TEST(UniqueDescriptorTest, closesWhenItIsDestroyed) {
    const int descriptor = openNullDevice();
    {
        const UniqueDescriptor owner(descriptor);
        EXPECT_TRUE(isOpen(descriptor));
    }
    EXPECT_FALSE(isOpen(descriptor));
}

TEST(UniqueDescriptorTest, closesOnceOnRequest) {
    UniqueDescriptor owner(openNullDevice());
    EXPECT_TRUE(owner.close());
    EXPECT_FALSE(owner);
    EXPECT_TRUE(owner.close()) << "there is nothing left to fail on";
}

TEST(UniqueDescriptorTest, reportsWhenTheSystemCannotClose) {
    const int descriptor = openNullDevice();
    ::close(descriptor);
    UniqueDescriptor owner(descriptor);
    EXPECT_FALSE(owner.close());
    EXPECT_FALSE(owner);
}

TEST(UniqueDescriptorTest, movesItsDescriptor) {
    const int descriptor = openNullDevice();
    UniqueDescriptor first(descriptor);
    UniqueDescriptor second(std::move(first));
    EXPECT_FALSE(first); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(second.get(), descriptor);

    const int other = openNullDevice();
    UniqueDescriptor third(other);
    third = std::move(second);
    EXPECT_EQ(third.get(), descriptor);
    EXPECT_FALSE(isOpen(other)) << "what was held before is closed";
    EXPECT_TRUE(isOpen(descriptor));
}

TEST(UniqueDescriptorTest, survivesAnAssignmentToItself) {
    UniqueDescriptor owner(openNullDevice());
    UniqueDescriptor& same = owner;
    owner = std::move(same);
    EXPECT_TRUE(owner);
    EXPECT_TRUE(isOpen(owner.get()));
}

TEST(UniqueDescriptorTest, isNotMovedIfAboveTheStandardStreams) {
    const int descriptor = openNullDevice();
    ASSERT_GT(descriptor, STDERR_FILENO);
    EXPECT_EQ(aboveStandardStreams(UniqueDescriptor(descriptor)).get(), descriptor);
    EXPECT_FALSE(isOpen(descriptor));
    EXPECT_FALSE(aboveStandardStreams(UniqueDescriptor()));
}

TEST(UniqueDescriptorTest, isMovedOutOfTheStandardStreams) {
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
        const std::string outcome = ChildProcess::outcome([stream] {
            close(stream);
            const UniqueDescriptor moved = aboveStandardStreams(UniqueDescriptor(openNullDevice()));
            std::string findings;
            findings += moved.get() > STDERR_FILENO ? "" : "still a standard stream\n";
            findings += isOpen(stream) ? "the old number is still open\n" : "";
            findings += (fcntl(moved.get(), F_GETFD) & FD_CLOEXEC) != 0 ? "" : "inherited by programs\n";
            return findings;
        });
        EXPECT_EQ(outcome, "") << stream;
    }
}

TEST(UniqueDescriptorTest, isEmptyIfTheSystemRefusesToMoveIt) {
    const std::string outcome = ChildProcess::outcome([] {
        close(STDIN_FILENO);
        UniqueDescriptor descriptor(openNullDevice());
        const rlimit limit{3, 3};
        setrlimit(RLIMIT_NOFILE, &limit);
        const UniqueDescriptor moved = aboveStandardStreams(std::move(descriptor));
        return std::string(moved ? "moved against the limit" : "") +
               (fcntl(STDIN_FILENO, F_GETFD) >= 0 ? "the old number is still open" : "");
    });
    EXPECT_EQ(outcome, "");
}
