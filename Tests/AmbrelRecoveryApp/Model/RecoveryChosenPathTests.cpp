#include "AmbrelRecoveryApp/Model/RecoveryChosenPath.h"

#include "Support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>

namespace {

using Kind = AmbrelRecoveryFailureKind;
using Path = std::filesystem::path;

class RecoveryChosenPathTest : public testing::Test {
protected:
    RecoveryChosenPathTest() {
        std::filesystem::create_directories(package_ / "payload");
        std::filesystem::create_directory(path("Elsewhere"));
    }

    Path path(const Path& name) const { return directory_.path() / name; }

    /// Why a destination is refused, or none.
    std::optional<Kind> refusal(const Path& destination) const {
        const RecoveryChosenPath::Outcome outcome = RecoveryChosenPath::destination(destination, package_);
        const auto* const kind = std::get_if<Kind>(&outcome);
        return kind == nullptr ? std::nullopt : std::optional(*kind);
    }

    const TemporaryDirectory directory_;
    const Path package_ = directory_.path() / "Photos.ambrel";
};

} // namespace

TEST_F(RecoveryChosenPathTest, aNewFolderElsewhereIsADestination) {
    EXPECT_EQ(std::get<Path>(RecoveryChosenPath::destination(path("Elsewhere/./x/../New/"), package_)),
              path("Elsewhere/New"));
    EXPECT_EQ(refusal(path("New")), std::nullopt);
    EXPECT_EQ(refusal(path("Photos.ambrel New")), std::nullopt);
    EXPECT_EQ(refusal(path("Elsewhere/missing/New")), std::nullopt);
    EXPECT_EQ(refusal(package_ / ".." / "New"), std::nullopt);
}

TEST_F(RecoveryChosenPathTest, whatExistsIsNoDestination) {
    std::ofstream(path("file")) << "x";
    std::filesystem::create_symlink(path("nowhere"), path("dangling"));
    for (const char* const name : {"file", "Elsewhere", "Elsewhere/", "dangling", "dangling/", "Photos.ambrel"}) {
        EXPECT_EQ(refusal(path(name)), Kind::destinationExists) << name;
    }
}

TEST_F(RecoveryChosenPathTest, nothingInsideThePackageIsADestination) {
    for (const char* const name : {"New", "payload/New", "missing/New", "New/", "payload/../New"}) {
        EXPECT_EQ(refusal(package_ / name), Kind::destinationUnavailable) << name;
    }
    EXPECT_EQ(refusal(path("Elsewhere/../Photos.ambrel/New")), Kind::destinationUnavailable);
}

TEST_F(RecoveryChosenPathTest, nothingBehindALinkIntoThePackageIsADestination) {
    std::filesystem::create_directory_symlink(package_, path("link"));
    std::filesystem::create_directory_symlink(package_ / "payload", path("Elsewhere/deep"));
    EXPECT_EQ(refusal(path("link/New")), Kind::destinationUnavailable);
    EXPECT_EQ(refusal(path("Elsewhere/deep/New")), Kind::destinationUnavailable);
    EXPECT_EQ(refusal(path("Elsewhere/deep/missing/New")), Kind::destinationUnavailable);
    // The system goes up from where the link leads to, a program that shortens the text from where it lies.
    EXPECT_EQ(refusal(path("Elsewhere/deep/../New")), Kind::destinationUnavailable);
}

TEST_F(RecoveryChosenPathTest, noMissingPathThatCouldLeadIntoThePackageIsADestination) {
    EXPECT_EQ(refusal(path("missing/../Photos.ambrel/New")), Kind::destinationUnavailable);
    std::filesystem::create_symlink(package_ / "not yet", path("dangling"));
    EXPECT_EQ(refusal(path("dangling/New")), Kind::destinationUnavailable);
    EXPECT_EQ(refusal(path("dangling/missing/New")), Kind::destinationUnavailable);
}

TEST_F(RecoveryChosenPathTest, thePackageIsRecognizedByItsIdentityAndNotByItsName) {
    const Path link = path("Chosen.ambrel");
    std::filesystem::create_directory_symlink(package_, link);
    EXPECT_EQ(std::get<Kind>(RecoveryChosenPath::destination(package_ / "New", link)), Kind::destinationUnavailable);
    EXPECT_EQ(std::get<Kind>(RecoveryChosenPath::destination(link / "New", link)), Kind::destinationUnavailable);
    EXPECT_EQ(std::get<Path>(RecoveryChosenPath::destination(path("New"), link)), path("New"));
}

TEST_F(RecoveryChosenPathTest, nothingIsADestinationIfThePackageCannotBeExamined) {
    const Path loop = path("Loop.ambrel");
    std::filesystem::create_symlink(loop, loop);
    EXPECT_EQ(std::get<Kind>(RecoveryChosenPath::destination(path("New"), loop)), Kind::destinationUnavailable);
}

TEST_F(RecoveryChosenPathTest, aFolderBesideThePackageIsADestinationEvenIfThePackageIsGone) {
    std::filesystem::remove_all(package_);
    EXPECT_EQ(refusal(path("New")), std::nullopt);
}
