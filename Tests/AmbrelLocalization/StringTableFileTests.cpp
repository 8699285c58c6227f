#include "AmbrelLocalization/StringTableFile.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <sys/resource.h>

namespace {

/// A table with one text.
std::string tableOf(const std::string& text) {
    return R"({"key": ")" + text + R"("})";
}

/// Until the end of the scope the process can open no further file.
class NoFreeDescriptors {
public:
    NoFreeDescriptors() {
        EXPECT_EQ(::getrlimit(RLIMIT_NOFILE, &previous_), 0);
        const rlimit none = {.rlim_cur = 0, .rlim_max = previous_.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    }
    NoFreeDescriptors(const NoFreeDescriptors&) = delete;
    NoFreeDescriptors& operator=(const NoFreeDescriptors&) = delete;
    ~NoFreeDescriptors() { EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &previous_), 0); }

private:
    rlimit previous_ = {};
};

class StringTableFileTest : public testing::Test {
protected:
    /// The text of the table, or none where there is no table or no text in it.
    std::optional<QString> text() {
        const auto table = file_.current();
        return table ? table->text("key") : std::nullopt;
    }

    TemporaryDirectory folder_;
    StringTableFile file_{folder_.path() / "file"};
};

TEST_F(StringTableFileTest, isNullWithoutAFile) {
    EXPECT_EQ(file_.current(), nullptr);
}

TEST_F(StringTableFileTest, isReadFromAPathThatIsNotUTF8) {
    const std::filesystem::path path = folder_.path() / "caf\xE9";
    writeInPlace(path, tableOf("one"));
    const auto table = StringTableFile(path).current();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->text("key"), QStringLiteral("one"));
}

TEST_F(StringTableFileTest, isReadOnceWhileTheFileStaysTheSame) {
    waitUntilSettled(writeInPlace(folder_ / "file", tableOf("one")));
    const auto first = file_.current();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->text("key"), QStringLiteral("one"));
    EXPECT_EQ(file_.current(), first);
    EXPECT_EQ(file_.current(), first);
}

TEST_F(StringTableFileTest, isReadAgainWhenTheFileIsWrittenInPlace) {
    for (int round = 0; round < 200; ++round) {
        // The same file, the same length, and often the same time.
        const std::string written = std::to_string(1000 + round);
        writeInPlace(folder_ / "file", tableOf(written));
        ASSERT_EQ(text(), QString::fromStdString(written));
    }
}

TEST_F(StringTableFileTest, isReadAgainWhenTheFileIsReplaced) {
    for (int round = 0; round < 200; ++round) {
        const std::string written = std::to_string(1000 + round);
        std::filesystem::rename(writeInPlace(folder_ / "new", tableOf(written)), folder_.path() / "file");
        ASSERT_EQ(text(), QString::fromStdString(written));
    }
}

TEST_F(StringTableFileTest, doesNotChangeATableInUse) {
    writeInPlace(folder_ / "file", tableOf("one"));
    const auto first = file_.current();
    ASSERT_NE(first, nullptr);
    writeInPlace(folder_ / "file", tableOf("other"));
    EXPECT_EQ(text(), QStringLiteral("other"));
    EXPECT_EQ(first->text("key"), QStringLiteral("one"));
}

TEST_F(StringTableFileTest, isReadAgainAfterAFailureUnrelatedToTheFile) {
    waitUntilSettled(writeInPlace(folder_ / "file", tableOf("one")));
    {
        const NoFreeDescriptors descriptors;
        EXPECT_EQ(text(), std::nullopt);
    }
    EXPECT_EQ(text(), QStringLiteral("one"));
    const NoFreeDescriptors descriptors;
    EXPECT_EQ(text(), QStringLiteral("one")) << "what was read is kept";
}

TEST_F(StringTableFileTest, isNullForAFileThatIsTooLarge) {
    std::string table = tableOf("one");
    table.resize(10'000'001, ' ');
    writeInPlace(folder_ / "file", table);
    EXPECT_EQ(file_.current(), nullptr);
    table.pop_back();
    writeInPlace(folder_ / "file", table);
    EXPECT_EQ(text(), QStringLiteral("one"));
}

TEST_F(StringTableFileTest, canOutliveItsFile) {
    writeInPlace(folder_ / "file", tableOf("one"));
    EXPECT_EQ(text(), QStringLiteral("one"));
    std::filesystem::remove(folder_ / "file");
    EXPECT_EQ(text(), QStringLiteral("one"));
    writeInPlace(folder_ / "file", std::string(10'000'001, ' '));
    EXPECT_EQ(text(), QStringLiteral("one"));
    writeInPlace(folder_ / "file", "");
    EXPECT_EQ(text(), QStringLiteral("one"));
    writeInPlace(folder_ / "file", tableOf("other"));
    EXPECT_EQ(text(), QStringLiteral("other"));
}

TEST_F(StringTableFileTest, isEmptyForAnEmptyFileThatNeverHeldMore) {
    writeInPlace(folder_ / "file", "");
    ASSERT_NE(file_.current(), nullptr);
    EXPECT_EQ(file_.current()->size(), 0U);
}

TEST_F(StringTableFileTest, isNullForAFolder) {
    std::filesystem::create_directory(folder_.path() / "file");
    EXPECT_EQ(file_.current(), nullptr);
}

} // namespace
