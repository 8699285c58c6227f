#include "StandInEngineTest.h"
#include "Support/TestFiles.h"

#include <algorithm>

namespace {

class SamplePicturesTest : public StandInEngineTest {};

bool isPicture(const std::string& path, const std::string& content) {
    return path.ends_with(".png")
               ? content.starts_with("\x89PNG\r\n\x1A\n") && content.ends_with("IEND\xAE\x42\x60\x82")
               : content.starts_with("\xFF\xD8\xFF") && content.ends_with("\xFF\xD9");
}

} // namespace

TEST_F(SamplePicturesTest, areRealPicturesOfAllSortsAndTheSameEveryTime) {
    const ProgramResult first = Program::run(DRAW_SAMPLE_PICTURES, {folder_ / "first"}, {});
    ASSERT_EQ(0, first.status) << first.error;
    const ProgramResult second = Program::run(DRAW_SAMPLE_PICTURES, {folder_ / "second"}, {});
    const auto pictures = FolderDigest::contents(folder_ / "first");
    EXPECT_TRUE(pictures == FolderDigest::contents(folder_ / "second"));
    EXPECT_EQ(first.output, second.output);
    EXPECT_EQ(36U, pictures.size());
    EXPECT_THAT(first.output, testing::StartsWith("pictures: 36\nbytes: "));
    EXPECT_TRUE(std::ranges::all_of(pictures, [](const auto& file) { return isPicture(file.first, file.second); }));
    EXPECT_LE(3, std::ranges::count_if(pictures, [](const auto& file) { return file.second.size() > 2'000'000; }));
    const auto countOf = [&](std::string_view part) {
        return std::ranges::count_if(pictures,
                                     [&](const auto& file) { return file.first.find(part) != std::string::npos; });
    };
    EXPECT_LE(10, countOf(".png"));
    EXPECT_LE(10, countOf("/"));
    EXPECT_LE(3, countOf(" "));
    EXPECT_LE(1, countOf("京都"));
}

TEST_F(SamplePicturesTest, aFolderThatIsNotEmptyIsLeftAlone) {
    TestFiles::write(folder_ / "mine", "mine");
    const ProgramResult result = Program::run(DRAW_SAMPLE_PICTURES, {folder_.path()}, {});
    EXPECT_EQ(1, result.status);
    EXPECT_EQ("draw-sample-pictures: the folder is not empty\n", result.error);
    expectOnly({"mine"});
}

TEST_F(SamplePicturesTest, anInvalidCommandLineEndsWithTheUsage) {
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{}, {"a", "b"}, {"--force"}}) {
        const ProgramResult result = Program::run(DRAW_SAMPLE_PICTURES, arguments, {});
        EXPECT_EQ(64, result.status);
        EXPECT_THAT(result.error, testing::StartsWith("Usage: draw-sample-pictures FOLDER\n"));
    }
}
