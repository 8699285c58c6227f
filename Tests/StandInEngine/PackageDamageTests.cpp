#include "Common/Failure.h"
#include "Engine/Inspector.h"
#include "Format/PayloadFormat.h"
#include "Package/LockedPackage.h"
#include "StandInEngineTest.h"
#include "Support/TestFiles.h"

namespace fs = std::filesystem;

namespace {

class PackageDamageTest : public StandInEngineTest {
protected:
    PackageDamageTest() : package_(folder_ / "P.ambrel") {
        record_ = TestPackage::record({package_.item("a.jpg", std::string(150'000, 'a')), package_.item("b.jpg", "b")});
        record_.items.push_back(package_.item("c.jpg", std::string(150'000, 'c')));
        commit_ = package_.publish(record_);
    }

    fs::path payload(std::size_t item) const {
        return package_.payloadPath(record_.items[item].resources.front().payload);
    }

    // In this process, because it is done thousands of times.
    Inspection inspectHere() const {
        const LockedPackage locked(package_.path());
        const UnlockedPackage unlocked =
            locked.unlock({Factor::backupPassphrase, SecretBytes::copyOf(bytesOf(TestPackage::passphrase))});
        return Inspector(unlocked).inspect();
    }

    // Whether an inspection refuses the package for what it holds.
    bool isRefused() const {
        try {
            inspectHere();
        } catch (const Failure& failure) {
            return failure.reason() == FailureReason::integrity || failure.reason() == FailureReason::packageInvalid;
        }
        return false;
    }

    std::int64_t mismatchedCount() const { return inspectHere().snapshots.front().evidence.mismatched; }

    TestPackage package_;
    CommitRecord record_;
    Identifier commit_;
};

std::string chunk(const std::string& file, std::size_t index) {
    return file.substr(PayloadFormat::streamHeaderByteCount + index * PayloadFormat::chunkByteCount,
                       PayloadFormat::chunkByteCount);
}

} // namespace

TEST_F(PackageDamageTest, everyChangedByteOfARecordIsNoticed) {
    for (const fs::path& path : {package_.path() / "header.txt", package_.path() / "keys", package_.commitPath(commit_),
                                 package_.path() / "heads" / commit_.hexadecimal()}) {
        const std::string content = TestFiles::read(path);
        for (std::size_t index = 0; index < content.size(); ++index) {
            std::string changed = content;
            changed[index] = static_cast<char>(changed[index] ^ (1 << index % 8));
            TestFiles::write(path, changed);
            EXPECT_TRUE(isRefused()) << path << " byte " << index;
        }
        TestFiles::write(path, content);
    }
    EXPECT_EQ(0, mismatchedCount());
}

TEST_F(PackageDamageTest, everyTruncationOfARecordIsNoticed) {
    for (const fs::path& path : {package_.path() / "header.txt", package_.path() / "keys", package_.commitPath(commit_),
                                 package_.path() / "heads" / commit_.hexadecimal()}) {
        const std::string content = TestFiles::read(path);
        for (std::size_t size = 0; size < content.size(); ++size) {
            TestFiles::write(path, content.substr(0, size));
            EXPECT_TRUE(isRefused()) << path << " cut to " << size;
        }
        TestFiles::write(path, content + '\0');
        EXPECT_TRUE(isRefused()) << path << " grown";
        TestFiles::write(path, content);
    }
}

TEST_F(PackageDamageTest, everyKindOfDamageToAPayloadIsNoticed) {
    const std::string content = TestFiles::read(payload(0));
    const std::string header = content.substr(0, PayloadFormat::streamHeaderByteCount);
    const std::string first = chunk(content, 0);
    const std::string second = chunk(content, 1);
    const std::string last = chunk(content, 2);
    ASSERT_EQ(content, header + first + second + last);
    std::vector<std::string> damaged = {
        "",
        header.substr(1),
        header,
        header + last,
        header + first,
        header + first + second,
        header + second + first + last,
        header + first + first + second + last,
        header + first + last,
        content + last,
        content + '\0',
        std::string(content.size(), '\0'),
    };
    for (std::size_t index = 0; index < content.size(); index += 4'999) {
        damaged.push_back(content);
        damaged.back()[index] = static_cast<char>(damaged.back()[index] ^ 0x10);
    }
    for (std::size_t number = 0; number < damaged.size(); ++number) {
        TestFiles::write(payload(0), damaged[number]);
        EXPECT_EQ(1, mismatchedCount()) << "damage " << number;
    }
}

TEST_F(PackageDamageTest, swappedPayloadsAreNoticed) {
    fs::rename(payload(0), folder_ / "aside");
    fs::rename(payload(2), payload(0));
    fs::rename(folder_ / "aside", payload(2));
    EXPECT_EQ(2, mismatchedCount());
}

TEST_F(PackageDamageTest, aPayloadOfAnotherPackageIsNoticed) {
    TestPackage other(folder_ / "Q.ambrel");
    const StoredPayload same = other.store("b");
    fs::copy_file(other.payloadPath(same.identifier), payload(1), fs::copy_options::overwrite_existing);
    EXPECT_EQ(1, mismatchedCount());
}

TEST_F(PackageDamageTest, aCommitUnderAnotherNameIsRefused) {
    CommitRecord record = record_;
    record.parents = {commit_};
    record.generation = 2;
    const Identifier second = package_.publish(record);
    fs::copy_file(package_.commitPath(commit_), package_.commitPath(second), fs::copy_options::overwrite_existing);
    EXPECT_TRUE(isRefused());
}

TEST_F(PackageDamageTest, aCommitIsNotAcceptedAsAHead) {
    const fs::path head = package_.path() / "heads" / commit_.hexadecimal();
    fs::copy_file(package_.commitPath(commit_), head, fs::copy_options::overwrite_existing);
    EXPECT_TRUE(isRefused());
}

TEST_F(PackageDamageTest, aDerivationWithAnExtremeCostIsNotTried) {
    // The checksum over the key file is no secret: anybody can make one that fits.
    const std::string header = TestFiles::read(package_.path() / "header.txt");
    const std::string content = TestFiles::read(package_.path() / "keys");
    KeyFile keyFile = KeyFile::decode(bytesOf(content), bytesOf(header));
    for (const KeyDerivationCost& cost :
         {KeyDerivationCost{1, 0xFFFFFFFF}, KeyDerivationCost{0xFFFFFFFF, 64}, KeyDerivationCost{0, 64},
          KeyDerivationCost{1, 7}, KeyDerivationCost{9, 64}, KeyDerivationCost{1, 1'048'577}}) {
        keyFile.slots[0].cost = cost;
        const Bytes encoded = keyFile.encode(bytesOf(header));
        TestFiles::write(package_.path() / "keys", std::string(encoded.begin(), encoded.end()));
        expectFailure(inspect(package_.path()), 4, "The chosen item is invalid or unsupported.");
    }
}
