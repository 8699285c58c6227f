#include "StandInEngineTest.h"

#include <cctype>

#include <fcntl.h>

namespace {

class UnlockingTest : public StandInEngineTest {
protected:
    UnlockingTest() : package_(folder_ / "P.ambrel") {
        package_.publish(TestPackage::record({package_.item("a.jpg", "content")}));
        guard(package_.path());
    }

    // A package whose passphrase is any bytes at all.
    std::filesystem::path packageWith(const std::string& passphraseBytes) const {
        const std::filesystem::path path = folder_ / "Other.ambrel";
        std::filesystem::create_directory(path);
        const UniqueDescriptor directory(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        PackageWriter writer(directory.get(), SecretBytes::copyOf(bytesOf(passphraseBytes)), SecretBytes(16),
                             KeyDerivationCost::fast());
        return path;
    }

    ProgramResult inspectWithInput(const std::string& input) const {
        return Program::run(STAND_IN_ENGINE, inspectArguments(package_.path(), passphrase()), {.input = input});
    }

    TestPackage package_;
};

} // namespace

TEST_F(UnlockingTest, eachSecretUnlocksAndItsKindIsReported) {
    EXPECT_EQ("backup-passphrase", std::string_view(inspection(package_.path())["unlockedFactor"]));
    EXPECT_EQ("recovery-key",
              std::string_view(inspection(package_.path(), recoveryKey(package_.recoveryKey()))["unlockedFactor"]));
}

TEST_F(UnlockingTest, aWrongPassphraseDoesNotUnlock) {
    for (const char* text : {"Correct horse", "correct horse ", " correct horse", "correct horse\n", "x"}) {
        expectFailure(inspect(package_.path(), passphrase(text)), 2, "The passphrase did not unlock this backup.");
    }
}

TEST_F(UnlockingTest, thePassphraseIsUsedByteForByte) {
    const std::vector<std::string> passphrases = {"  around  ",
                                                  "\ttab",
                                                  "two\nlines",
                                                  "\n",
                                                  "caf\u00E9",
                                                  "cafe\u0301",
                                                  "\xFF\xFE",
                                                  std::string("a\0b", 3),
                                                  std::string(200'000, 'x')};
    for (const std::string& text : passphrases) {
        const std::filesystem::path path = packageWith(text);
        EXPECT_EQ(0, inspect(path, passphrase(text)).status) << testing::PrintToString(text.substr(0, 20));
        EXPECT_EQ(2, inspect(path, passphrase(text + "x")).status);
        std::filesystem::remove_all(path);
    }
}

TEST_F(UnlockingTest, anotherPackagesRecoveryKeyDoesNotUnlock) {
    TestPackage other(folder_ / "Other.ambrel");
    expectFailure(inspect(package_.path(), recoveryKey(other.recoveryKey())), 2,
                  "The recovery key did not unlock this backup.");
}

TEST_F(UnlockingTest, aMistypedRecoveryKeyIsInvalid) {
    std::string mistyped = package_.recoveryKey();
    mistyped.front() = mistyped.front() == '7' ? '8' : '7';
    for (const std::string& text : {mistyped, std::string("correct horse"), std::string(), std::string("\xFF")}) {
        expectFailure(inspect(package_.path(), recoveryKey(text)), 3, "The credential is invalid.");
    }
}

TEST_F(UnlockingTest, anEmptyOrOversizedPassphraseIsInvalid) {
    expectFailure(inspect(package_.path(), passphrase("")), 3, "The credential is invalid.");
    expectFailure(inspect(package_.path(), passphrase(std::string(3 << 20, 'x'))), 3, "The credential is invalid.");
}

TEST_F(UnlockingTest, aCredentialWithoutItsLineFeedIsRefused) {
    for (const char* input : {"", "correct horse"}) {
        expectFailure(inspectWithInput(input), 1, "No credential and line feed arrived on standard input.");
    }
}

TEST_F(UnlockingTest, theRecoveryKeyMayBeTypedCarelessly) {
    std::string typed = "  ";
    for (const char character : package_.recoveryKey()) {
        typed += character == '-'   ? " \u2013 "
                 : character == '0' ? "o"
                 : character == '1' ? "l"
                                    : std::string(1, static_cast<char>(std::tolower(character)));
    }
    EXPECT_EQ(0, inspect(package_.path(), recoveryKey(typed)).status);
}
