#include "StandInEngineTest.h"
#include "Support/TestFiles.h"

#include <sys/resource.h>

namespace fs = std::filesystem;

namespace {

class ResourceLimitTest : public StandInEngineTest {
protected:
    ResourceLimitTest() : package_(folder_ / "P.ambrel") {}

    std::string publish(const StoredPayload& payload) {
        CommitRecord record = TestPackage::record({CommitRecord::Item()});
        record.items.front().resources.push_back({"a.bin", payload.identifier, payload.byteCount, 0, 0});
        record.generation = ++generation_;
        return package_.publish(record).hexadecimal().substr(0, 12);
    }

    ProgramResult exportWith(const std::string& code, std::function<void()> inChild) const {
        return Program::run(STAND_IN_ENGINE, exportArguments(package_.path(), code, passphrase()),
                            {.input = "correct horse\n", .inChild = std::move(inChild)});
    }

    TestPackage package_;
    std::uint64_t generation_ = 0;
};

} // namespace

TEST_F(ResourceLimitTest, aLargeFileIsNeverWholeInMemory) {
    constexpr std::uint64_t largeByteCount = 64 << 20;
    constexpr long allowanceKibibytes = 16 << 10;
    const std::string small = publish(package_.storeZeros(1));
    const long smallInspection = inspect(package_.path()).maximumResidentKibibytes;
    const ProgramResult smallExport = exportSnapshot(package_.path(), small);
    fs::remove_all(destination());
    const std::string large = publish(package_.storeZeros(largeByteCount));
    EXPECT_LT(inspect(package_.path()).maximumResidentKibibytes, smallInspection + allowanceKibibytes);
    const ProgramResult largeExport = exportSnapshot(package_.path(), large);
    EXPECT_EQ(0, largeExport.status) << largeExport.error;
    EXPECT_LT(largeExport.maximumResidentKibibytes, smallExport.maximumResidentKibibytes + allowanceKibibytes);
    EXPECT_EQ(largeByteCount, fs::file_size(destination() / "a.bin"));
}

TEST_F(ResourceLimitTest, hugeRecordsAreRefusedWithoutReadingThem) {
    constexpr std::uintmax_t oneTebibyte = std::uintmax_t{1} << 40;
    publish(package_.storeZeros(1));
    const long usual = inspect(package_.path()).maximumResidentKibibytes;
    const fs::path commit = fs::directory_iterator(package_.path() / "commits")->path();
    const fs::path head = fs::directory_iterator(package_.path() / "heads")->path();
    for (const fs::path& path : {commit, head, package_.path() / "keys", package_.path() / "header.txt"}) {
        const std::string content = TestFiles::read(path);
        fs::resize_file(path, oneTebibyte);
        const ProgramResult result = inspect(package_.path());
        EXPECT_TRUE(result.status == 6 || result.status == 4) << result.error;
        EXPECT_LT(result.maximumResidentKibibytes, usual + (8 << 10)) << path;
        TestFiles::write(path, content);
    }
}

TEST_F(ResourceLimitTest, anExportThatFindsNoRoomLeavesNothingBehind) {
    const std::string code = publish(package_.storeZeros(300'000));
    guard(package_.path());
    // The kernel refuses to let a file grow beyond the limit, as it does on a full disk.
    const ProgramResult result = exportWith(code, [] {
        const rlimit limit = {100'000, 100'000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    });
    expectFailure(result, 9, "The output could not be written.");
    expectOnly({"P.ambrel"});
}
