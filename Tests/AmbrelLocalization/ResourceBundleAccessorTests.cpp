#include "AmbrelLocalization/resource_bundle_accessor.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

namespace {

using ResourceBundleAccessor::bundleAmong;

class ResourceBundleAccessorTest : public testing::Test {
protected:
    std::filesystem::path made(const char* name) const {
        std::filesystem::create_directory(folder_.path() / name);
        return folder_.path() / name;
    }

    TemporaryDirectory folder_;
};

TEST_F(ResourceBundleAccessorTest, takesTheFirstFolderThatExists) {
    EXPECT_EQ(bundleAmong(made("main"), made("build")), folder_.path() / "main");
    EXPECT_EQ(bundleAmong(folder_.path() / "missing", made("build")), folder_.path() / "build");
}

TEST_F(ResourceBundleAccessorTest, doesNotMistakeAFileForABundle) {
    EXPECT_EQ(bundleAmong(writeInPlace(folder_ / "file", ""), made("build")), folder_.path() / "build");
}

using ResourceBundleAccessorDeathTest = ResourceBundleAccessorTest;

TEST_F(ResourceBundleAccessorDeathTest, endsTheProcessIfThereIsNone) {
    EXPECT_DEATH(bundleAmong("/nowhere/a.bundle", "/nowhere/b.bundle"),
                 "could not load resource bundle: from /nowhere/a.bundle or /nowhere/b.bundle");
}

TEST(ResourceBundleTest, hasTheModulesName) {
    EXPECT_EQ(ResourceBundleAccessor::moduleBundle().filename(), "AmbrelCore_AmbrelLocalization.bundle");
    EXPECT_EQ(&ResourceBundleAccessor::moduleBundle(), &ResourceBundleAccessor::moduleBundle());
}

} // namespace
