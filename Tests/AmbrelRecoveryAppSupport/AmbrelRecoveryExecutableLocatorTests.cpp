#include "AmbrelRecoveryAppSupport/AmbrelRecoveryExecutableLocator.h"

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"
#include "Support/TemporaryDirectory.h"
#include "Support/TestFiles.h"

#include <gtest/gtest.h>

#include <optional>

namespace fs = std::filesystem;

namespace {

class AmbrelRecoveryExecutableLocatorTest : public testing::Test {
protected:
    /// The engine's path, or none where the locator throws executableUnavailable. Every other error goes on.
    std::optional<fs::path> located() const {
        try {
            return AmbrelRecoveryExecutableLocator::bundledExecutable(ApplicationBundle(bundle_.path()));
        } catch (AmbrelRecoveryProcessError error) {
            EXPECT_EQ(error, AmbrelRecoveryProcessError::executableUnavailable);
            return std::nullopt;
        }
    }

    const TemporaryDirectory bundle_;
    const fs::path resources_ = bundle_ / "Resources";
    const fs::path engine_ = resources_ / "bin" / "ambrel-recovery";
};

} // namespace

TEST_F(AmbrelRecoveryExecutableLocatorTest, findsTheEngineInTheResources) {
    fs::create_directories(engine_.parent_path());
    for (const mode_t mode : {0755U, 0700U, 0555U, 0500U}) {
        TestFiles::write(engine_, "#!/bin/sh\n", mode);
        EXPECT_EQ(located(), engine_);
    }
}

TEST_F(AmbrelRecoveryExecutableLocatorTest, findsALinkToAnEngine) {
    fs::create_directories(engine_.parent_path());
    TestFiles::write(bundle_ / "elsewhere", "#!/bin/sh\n", 0755);
    fs::create_symlink(bundle_ / "elsewhere", engine_);
    EXPECT_EQ(located(), engine_);
}

TEST_F(AmbrelRecoveryExecutableLocatorTest, findsNothingWithoutResources) {
    EXPECT_EQ(located(), std::nullopt);
    TestFiles::write(resources_, "a file", 0755);
    EXPECT_EQ(located(), std::nullopt);
}

TEST_F(AmbrelRecoveryExecutableLocatorTest, findsNothingWithoutAnEngine) {
    fs::create_directories(resources_);
    EXPECT_EQ(located(), std::nullopt);
    fs::create_directories(engine_.parent_path());
    EXPECT_EQ(located(), std::nullopt);
}

TEST_F(AmbrelRecoveryExecutableLocatorTest, refusesWhatIsNotExecutable) {
    fs::create_directories(engine_.parent_path());
    for (const mode_t mode : {0644U, 0600U, 0000U}) {
        TestFiles::write(engine_, "#!/bin/sh\n", mode);
        EXPECT_EQ(located(), std::nullopt) << mode;
    }
    fs::remove(engine_);
    fs::create_symlink("nowhere", engine_);
    EXPECT_EQ(located(), std::nullopt);
    fs::remove(engine_);
    fs::create_directory(engine_);
    EXPECT_EQ(located(), std::nullopt);
}

TEST_F(AmbrelRecoveryExecutableLocatorTest, looksInNoOtherPlace) {
    fs::create_directories(engine_.parent_path());
    fs::create_directories(bundle_ / "bin");
    for (const fs::path& path :
         {resources_ / "ambrel-recovery", bundle_ / "ambrel-recovery", bundle_ / "bin" / "ambrel-recovery",
          resources_ / "bin" / "Ambrel-Recovery", resources_ / "bin" / "ambrel-recovery.exe"}) {
        TestFiles::write(path, "#!/bin/sh\n", 0755);
    }
    EXPECT_EQ(located(), std::nullopt);
}

TEST_F(AmbrelRecoveryExecutableLocatorTest, ignoresTheWorkingDirectoryForABundleWithoutAFolder) {
    fs::create_directories(engine_.parent_path());
    TestFiles::write(engine_, "#!/bin/sh\n", 0755);
    const fs::path before = fs::current_path();
    fs::current_path(bundle_.path());
    EXPECT_THROW(AmbrelRecoveryExecutableLocator::bundledExecutable(ApplicationBundle(fs::path())),
                 AmbrelRecoveryProcessError);
    fs::current_path(before);
}

TEST_F(AmbrelRecoveryExecutableLocatorTest, looksAgainAtEveryCall) {
    fs::create_directories(engine_.parent_path());
    TestFiles::write(engine_, "#!/bin/sh\n", 0755);
    EXPECT_EQ(located(), engine_);
    fs::remove(engine_);
    EXPECT_EQ(located(), std::nullopt);
}
