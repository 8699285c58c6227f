#include "AmbrelLocalization/FileBackedValue.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <sys/resource.h>

namespace {

struct CountedText {
    static CountedText decoded(std::string_view bytes) {
        ++decodedCount;
        return {std::string(bytes)};
    }

    std::string text;

    bool isEmpty() const { return text.empty(); }
    static inline int decodedCount = 0;
};

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

class FileBackedValueTest : public testing::Test {
protected:
    FileBackedValueTest() { CountedText::decodedCount = 0; }

    /// The text of the value, or none where it is null.
    std::optional<std::string> text() {
        const auto value = value_.current();
        return value ? std::optional(value->text) : std::nullopt;
    }

    TemporaryDirectory folder_;
    FileBackedValue<CountedText> value_{folder_.path() / "file", 100};
};

TEST_F(FileBackedValueTest, isNullWithoutAFile) {
    EXPECT_EQ(value_.current(), nullptr);
    EXPECT_EQ(CountedText::decodedCount, 0);
}

TEST_F(FileBackedValueTest, isDecodedOnceWhileTheFileStaysTheSame) {
    waitUntilSettled(writeInPlace(folder_ / "file", "one"));
    const auto first = value_.current();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->text, "one");
    EXPECT_EQ(value_.current(), first);
    EXPECT_EQ(value_.current(), first);
    EXPECT_EQ(CountedText::decodedCount, 1);
}

TEST_F(FileBackedValueTest, isDecodedAgainWhenTheFileIsWrittenInPlace) {
    for (int round = 0; round < 200; ++round) {
        // The same file, the same length, and often the same time.
        const std::string written = std::to_string(1000 + round);
        writeInPlace(folder_ / "file", written);
        ASSERT_EQ(text(), written);
    }
}

TEST_F(FileBackedValueTest, isDecodedAgainWhenTheFileIsReplaced) {
    for (int round = 0; round < 200; ++round) {
        const std::string written = std::to_string(1000 + round);
        std::filesystem::rename(writeInPlace(folder_ / "new", written), folder_.path() / "file");
        ASSERT_EQ(text(), written);
    }
}

TEST_F(FileBackedValueTest, doesNotChangeAValueInUse) {
    writeInPlace(folder_ / "file", "one");
    const auto first = value_.current();
    ASSERT_NE(first, nullptr);
    writeInPlace(folder_ / "file", "other");
    EXPECT_EQ(text(), "other");
    EXPECT_EQ(first->text, "one");
}

TEST_F(FileBackedValueTest, isReadAgainAfterAFailureUnrelatedToTheFile) {
    waitUntilSettled(writeInPlace(folder_ / "file", "one"));
    {
        const NoFreeDescriptors descriptors;
        EXPECT_EQ(text(), std::nullopt);
    }
    EXPECT_EQ(text(), "one");
    const NoFreeDescriptors descriptors;
    EXPECT_EQ(text(), "one") << "what was read is kept";
}

TEST_F(FileBackedValueTest, isNullForAFileThatIsTooLarge) {
    writeInPlace(folder_ / "file", std::string(101, 'x'));
    EXPECT_EQ(value_.current(), nullptr);
    writeInPlace(folder_ / "file", std::string(100, 'x'));
    EXPECT_NE(value_.current(), nullptr);
}

TEST_F(FileBackedValueTest, outlivesItsFile) {
    writeInPlace(folder_ / "file", "one");
    EXPECT_EQ(text(), "one");
    std::filesystem::remove(folder_ / "file");
    EXPECT_EQ(text(), "one");
    writeInPlace(folder_ / "file", std::string(101, 'x'));
    EXPECT_EQ(text(), "one");
    writeInPlace(folder_ / "file", "");
    EXPECT_EQ(text(), "one");
    writeInPlace(folder_ / "file", "other");
    EXPECT_EQ(text(), "other");
}

TEST_F(FileBackedValueTest, isEmptyIfItsFileWasAlwaysEmpty) {
    writeInPlace(folder_ / "file", "");
    EXPECT_EQ(text(), "");
}

TEST_F(FileBackedValueTest, isNullForAFolder) {
    std::filesystem::create_directory(folder_.path() / "file");
    EXPECT_EQ(value_.current(), nullptr);
}

} // namespace
