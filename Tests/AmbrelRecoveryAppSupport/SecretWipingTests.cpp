// Secrets are gone, and not only forgotten, once their holder drops them.

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryCredentialSession.h"
#include "AmbrelRecoveryAppSupport/SecretBytes.h"
#include "ProcessRunnerTest.h"
#include "ReleasedPages.h"
#include "Support/MemoryScan.h"
#include "Support/TestFiles.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::SizeIs;

namespace {

constexpr auto filler = std::byte{0xA5};
using enum AmbrelRecoveryAppFactor;

class SecretWipingTest : public testing::Test {
protected:
    void SetUp() override { ReleasedPages::reset(); }
};

class CredentialWipingTest : public ProcessRunnerTest {
protected:
    void SetUp() override {
        ProcessRunnerTest::SetUp();
        ReleasedPages::reset();
    }
};

SecretBytes filled(std::size_t size) {
    SecretBytes bytes(size);
    std::ranges::fill(bytes.bytes(), filler);
    return bytes;
}

/// One release, of the pages at the address, all zero.
auto wipedAt(const void* address) {
    return ElementsAre(
        AllOf(Field(&ReleasedPages::Record::address, address), Field(&ReleasedPages::Record::wiped, true)));
}

const auto allWiped = Each(Field(&ReleasedPages::Record::wiped, true));

SecretBytes hiddenCredential() {
    SecretBytes credential(MemoryScan::secretSize);
    MemoryScan::writeHiddenSecret(credential.bytes().first<MemoryScan::secretSize>());
    return credential;
}

} // namespace

TEST_F(SecretWipingTest, secretBytesAreWipedWhenTheyAreDestroyed) {
    for (const std::size_t size : {1U, 100U, 4095U, 4096U, 4097U, 1000000U}) {
        ReleasedPages::reset();
        const void* address = nullptr;
        {
            const SecretBytes bytes = filled(size);
            address = bytes.bytes().data();
            EXPECT_THAT(ReleasedPages::records(), SizeIs(0));
        }
        EXPECT_THAT(ReleasedPages::records(), wipedAt(address)) << size;
        EXPECT_GE(ReleasedPages::records().front().length, size);
    }
}

TEST_F(SecretWipingTest, secretBytesAreWipedOnRequest) {
    SecretBytes bytes = filled(100);
    const void* const address = bytes.bytes().data();
    bytes.wipe();
    EXPECT_THAT(ReleasedPages::records(), wipedAt(address));
    bytes.wipe();
    EXPECT_THAT(ReleasedPages::records(), SizeIs(1));
}

TEST_F(SecretWipingTest, secretBytesAreWipedWhenOthersReplaceThem) {
    SecretBytes bytes = filled(100);
    const void* const address = bytes.bytes().data();
    bytes = filled(200);
    EXPECT_THAT(ReleasedPages::records(), wipedAt(address));
    EXPECT_EQ(bytes.size(), 200U);
}

TEST_F(SecretWipingTest, movedSecretBytesAreReleasedOnce) {
    {
        SecretBytes bytes = filled(100);
        SecretBytes moved(std::move(bytes));
        const SecretBytes again(std::move(moved));
    }
    EXPECT_THAT(ReleasedPages::records(), SizeIs(1));
}

TEST_F(SecretWipingTest, aSessionWipesItsBufferWhenItIsInvalidated) {
    SecretBytes bytes = filled(100);
    const void* const address = bytes.bytes().data();
    AmbrelRecoveryCredentialSession session(recoveryKey, std::move(bytes));
    EXPECT_THAT(ReleasedPages::records(), SizeIs(0)) << "the session holds the buffer that it was given";
    session.invalidate();
    EXPECT_THAT(ReleasedPages::records(), wipedAt(address));
    session.invalidate();
    EXPECT_THAT(ReleasedPages::records(), SizeIs(1));
}

TEST_F(SecretWipingTest, aSessionWipesItsBufferWhenItIsDestroyed) {
    SecretBytes bytes = filled(100);
    const void* const address = bytes.bytes().data();
    { const AmbrelRecoveryCredentialSession session(backupPassphrase, std::move(bytes)); }
    EXPECT_THAT(ReleasedPages::records(), wipedAt(address));
}

TEST_F(SecretWipingTest, aCopyThatASessionHandsOutIsWipedByItsReceiver) {
    AmbrelRecoveryCredentialSession session(backupPassphrase, filled(100));
    const void* address = nullptr;
    {
        const std::optional<SecretBytes> copy = session.credential(backupPassphrase);
        address = copy->bytes().data();
        EXPECT_THAT(ReleasedPages::records(), SizeIs(0));
    }
    EXPECT_THAT(ReleasedPages::records(), wipedAt(address));
}

TEST_F(CredentialWipingTest, everyOutcomeOfARunWipesTheRunnersCopies) {
    const std::string credential(100000, 'x');
    EXPECT_EQ(run({"echo-input"}, credential).exitCode, 0);
    EXPECT_EQ(errorOfRun({"wait"}, "credential", 0), Error::timedOut);
    EXPECT_EQ(errorOfRun({"close-input"}, credential), Error::launchFailed);
    EXPECT_EQ(errorOfRun({"wait"}, credential, 0), Error::timedOut);
    EXPECT_EQ(errorOfRun({"close-input-and-exit", "0"}, credential), Error::launchFailed);
    std::stop_source cancelled;
    cancelled.request_stop();
    EXPECT_EQ(run({"wait"}, credential, patience, cancelled.get_token()).exitCode, SIGTERM);
    TestFiles::write(directory_ / "text", "exit 0\n", 0755);
    EXPECT_EQ(errorOfRunning(directory_ / "text", "credential"), Error::launchFailed);
    EXPECT_THAT(ReleasedPages::records(), AllOf(SizeIs(7), allWiped));
}

TEST_F(CredentialWipingTest, aRefusedRunWipesItsCopy) {
    NamedPipe log(directory_ / "log");
    const ScopedEnvironment logVariable("AMBREL_TEST_ENGINE_LOG", log.path().string());
    std::thread first([this] { EXPECT_EQ(run({"wait"}).exitCode, 15); });
    log.readUntil("waiting");
    EXPECT_EQ(errorOfRun({"exit", "0"}, "credential"), Error::operationAlreadyRunning);
    EXPECT_THAT(ReleasedPages::records(), AllOf(SizeIs(1), allWiped));
    runner_.cancelCurrentOperation();
    first.join();
}

TEST_F(CredentialWipingTest, noCopyStaysInTheMemoryOfTheProcessAfterARun) {
    const std::string length = std::to_string(MemoryScan::secretSize + 1);
    {
        AmbrelRecoveryCredentialSession session(recoveryKey, hiddenCredential());
        const std::optional<SecretBytes> credential = session.credential(recoveryKey);
        EXPECT_EQ(runner_.run({"read-part", length}, credential->bytes(), patience).exitCode, 0);
        EXPECT_EQ(MemoryScan::copiesOfHiddenSecret(), 2) << "the session's and this one";
    }
    EXPECT_EQ(MemoryScan::copiesOfHiddenSecret(), 0);
}

TEST_F(CredentialWipingTest, noCopyStaysInTheMemoryOfTheProcessAfterAFailedRun) {
    {
        const SecretBytes credential = hiddenCredential();
        EXPECT_EQ(errorOf([&] { runner_.run({"wait"}, credential.bytes(), 0); }), Error::timedOut);
        EXPECT_EQ(MemoryScan::copiesOfHiddenSecret(), 1);
    }
    EXPECT_EQ(MemoryScan::copiesOfHiddenSecret(), 0);
}
