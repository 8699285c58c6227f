// Secrets are gone, and not only forgotten, once their holder drops them.

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryCredentialSession.h"
#include "AmbrelRecoveryAppSupport/SecretBytes.h"
#include "AmbrelRecoveryAppSupport/UniqueDescriptor.h"
#include "ProcessRunnerTest.h"
#include "ReleasedPages.h"
#include "Support/TestFiles.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>
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

/// A credential of 48 bytes that stands nowhere in this program as it is.
class HiddenCredential {
public:
    static constexpr std::size_t size = 48;

    static std::byte at(std::size_t index) {
        return static_cast<std::byte>((index * 37 + 11) % 251) ^ static_cast<std::byte>(0x5A);
    }

    static SecretBytes bytes() {
        SecretBytes credential(size);
        for (std::size_t index = 0; index < size; ++index) {
            credential.bytes()[index] = at(index);
        }
        return credential;
    }

    static bool isAt(const char* place) {
        for (std::size_t index = 0; index < size; ++index) {
            if (static_cast<std::byte>(place[index]) != at(index)) {
                return false;
            }
        }
        return true;
    }
};

int copiesIn(std::string_view memory) {
    const char first = static_cast<char>(HiddenCredential::at(0));
    int copies = 0;
    for (std::size_t place = memory.find(first); place != std::string_view::npos;
         place = memory.find(first, place + 1)) {
        const bool fits = place + HiddenCredential::size <= memory.size();
        copies += fits && HiddenCredential::isAt(memory.data() + place) ? 1 : 0;
    }
    return copies;
}

/// How often the hidden credential stands between the two addresses.
int copiesBetween(int memory, std::uintptr_t start, std::uintptr_t end) {
    static std::array<char, 1U << 20U> buffer;
    int copies = 0;
    while (start + HiddenCredential::size <= end) {
        const ssize_t length =
            pread(memory, buffer.data(), std::min(buffer.size(), end - start), static_cast<off_t>(start));
        if (length < static_cast<ssize_t>(HiddenCredential::size)) {
            return copies;
        }
        copies += copiesIn(std::string_view(buffer.data(), static_cast<std::size_t>(length)));
        // The next piece begins with what could still be the beginning of a copy.
        start += static_cast<std::size_t>(length) - HiddenCredential::size + 1;
    }
    return copies;
}

int copiesInMemory() {
    // Sanitizers reserve regions of this size that hold no data of the program.
    constexpr std::uintptr_t gibibyte = 1U << 30U;
    const UniqueDescriptor memory(open("/proc/self/mem", O_RDONLY | O_CLOEXEC));
    std::istringstream maps(TestFiles::read("/proc/self/maps"));
    int copies = 0;
    for (std::string line; std::getline(maps, line);) {
        std::istringstream words(line);
        std::uintptr_t start = 0;
        std::uintptr_t end = 0;
        char dash = 0;
        std::string permissions;
        words >> std::hex >> start >> dash >> end >> permissions;
        if (permissions.starts_with("rw") && end - start < gibibyte) {
            copies += copiesBetween(memory.get(), start, end);
        }
    }
    return copies;
}

} // namespace

TEST_F(SecretWipingTest, SecretBytesAreWipedWhenTheyAreDestroyed) {
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

TEST_F(SecretWipingTest, SecretBytesAreWipedWhenTheyAreAskedTo) {
    SecretBytes bytes = filled(100);
    const void* const address = bytes.bytes().data();
    bytes.wipe();
    EXPECT_THAT(ReleasedPages::records(), wipedAt(address));
    bytes.wipe();
    EXPECT_THAT(ReleasedPages::records(), SizeIs(1));
}

TEST_F(SecretWipingTest, SecretBytesAreWipedWhenOthersTakeTheirPlace) {
    SecretBytes bytes = filled(100);
    const void* const address = bytes.bytes().data();
    bytes = filled(200);
    EXPECT_THAT(ReleasedPages::records(), wipedAt(address));
    EXPECT_EQ(bytes.size(), 200U);
}

TEST_F(SecretWipingTest, MovedSecretBytesAreReleasedOnce) {
    {
        SecretBytes bytes = filled(100);
        SecretBytes moved(std::move(bytes));
        const SecretBytes again(std::move(moved));
    }
    EXPECT_THAT(ReleasedPages::records(), SizeIs(1));
}

TEST_F(SecretWipingTest, ASessionWipesItsBufferWhenItIsInvalidated) {
    SecretBytes bytes = filled(100);
    const void* const address = bytes.bytes().data();
    AmbrelRecoveryCredentialSession session(recoveryKey, std::move(bytes));
    EXPECT_THAT(ReleasedPages::records(), SizeIs(0)) << "the session holds the buffer that it was given";
    session.invalidate();
    EXPECT_THAT(ReleasedPages::records(), wipedAt(address));
    session.invalidate();
    EXPECT_THAT(ReleasedPages::records(), SizeIs(1));
}

TEST_F(SecretWipingTest, ASessionWipesItsBufferWhenItIsDestroyed) {
    SecretBytes bytes = filled(100);
    const void* const address = bytes.bytes().data();
    { const AmbrelRecoveryCredentialSession session(backupPassphrase, std::move(bytes)); }
    EXPECT_THAT(ReleasedPages::records(), wipedAt(address));
}

TEST_F(SecretWipingTest, ACopyThatASessionHandsOutIsWipedByItsReceiver) {
    AmbrelRecoveryCredentialSession session(backupPassphrase, filled(100));
    const void* address = nullptr;
    {
        const std::optional<SecretBytes> copy = session.credential(backupPassphrase);
        address = copy->bytes().data();
        EXPECT_THAT(ReleasedPages::records(), SizeIs(0));
    }
    EXPECT_THAT(ReleasedPages::records(), wipedAt(address));
}

TEST_F(CredentialWipingTest, EveryOutcomeOfARunWipesTheRunnersCopies) {
    const std::string credential(100000, 'x');
    EXPECT_EQ(run({"echo-input"}, credential).exitCode, 0);
    EXPECT_EQ(errorOfRun({"wait"}, "credential", 0), Error::timedOut);
    EXPECT_EQ(errorOfRun({"close-input"}, credential), Error::launchFailed);
    EXPECT_EQ(errorOfRun({"remove-output-directory"}, "credential"), Error::temporaryOutputUnavailable);
    TestFiles::write(directory_ / "text", "exit 0\n", 0755);
    EXPECT_EQ(errorOfRunning(directory_ / "text", "credential"), Error::launchFailed);
    EXPECT_THAT(ReleasedPages::records(), AllOf(SizeIs(5), allWiped));
}

TEST_F(CredentialWipingTest, ARefusedRunWipesItsCopy) {
    NamedPipe log(directory_ / "log");
    const ScopedEnvironment logVariable("AMBREL_TEST_ENGINE_LOG", log.path().string());
    std::thread first([this] { EXPECT_EQ(run({"wait"}).exitCode, 15); });
    log.readUntil("waiting");
    EXPECT_EQ(errorOfRun({"exit", "0"}, "credential"), Error::operationAlreadyRunning);
    EXPECT_THAT(ReleasedPages::records(), AllOf(SizeIs(1), allWiped));
    runner_.cancelCurrentOperation();
    first.join();
}

TEST_F(CredentialWipingTest, NoCopyStaysInTheMemoryOfTheProcessAfterARun) {
    const std::string length = std::to_string(HiddenCredential::size + 1);
    {
        AmbrelRecoveryCredentialSession session(recoveryKey, HiddenCredential::bytes());
        const std::optional<SecretBytes> credential = session.credential(recoveryKey);
        EXPECT_EQ(runner_.run({"read-part", length}, credential->bytes(), patience).exitCode, 0);
        EXPECT_EQ(copiesInMemory(), 2) << "the session's and this one";
    }
    EXPECT_EQ(copiesInMemory(), 0);
}

TEST_F(CredentialWipingTest, NoCopyStaysInTheMemoryOfTheProcessAfterAFailedRun) {
    {
        const SecretBytes credential = HiddenCredential::bytes();
        EXPECT_EQ(errorOf([&] { runner_.run({"wait"}, credential.bytes(), 0); }), Error::timedOut);
        EXPECT_EQ(copiesInMemory(), 1);
    }
    EXPECT_EQ(copiesInMemory(), 0);
}
