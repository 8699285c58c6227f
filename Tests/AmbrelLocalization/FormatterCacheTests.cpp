#include "AmbrelLocalization/FormatterCache.h"

#include <gtest/gtest.h>

namespace {

TEST(FormatterCacheTest, makesEachFormatterOnce) {
    FormatterCache<int> cache;
    int made = 0;
    const auto make = [&made] { return std::make_unique<int>(++made); };
    const auto first = cache.formatter({"first"}, make);
    EXPECT_EQ(cache.formatter({"first"}, make), first);
    EXPECT_EQ(*cache.formatter({"second"}, make), 2);
    EXPECT_EQ(cache.formatter({"first"}, make), first);
    EXPECT_EQ(made, 2);
}

TEST(FormatterCacheTest, tellsKeysApartByTheirParts) {
    FormatterCache<int> cache;
    int made = 0;
    const auto make = [&made] { return std::make_unique<int>(++made); };
    EXPECT_EQ(*cache.formatter({"ab", "c"}, make), 1);
    EXPECT_EQ(*cache.formatter({"a", "bc"}, make), 2);
    EXPECT_EQ(*cache.formatter({"abc"}, make), 3);
}

TEST(FormatterCacheTest, triesAgainIfNoneCouldBeMade) {
    FormatterCache<int> cache;
    EXPECT_EQ(cache.formatter({"first"}, [] { return std::unique_ptr<int>(); }), nullptr);
    EXPECT_EQ(*cache.formatter({"first"}, [] { return std::make_unique<int>(1); }), 1);
}

TEST(FormatterCacheTest, doesNotGrowWithoutBound) {
    FormatterCache<int> cache;
    const std::weak_ptr<const int> first = cache.formatter({"first"}, [] { return std::make_unique<int>(1); });
    for (int index = 0; index < 1000 && !first.expired(); ++index) {
        cache.formatter({std::to_string(index)}, [] { return std::make_unique<int>(2); });
    }
    EXPECT_TRUE(first.expired());
}

} // namespace
