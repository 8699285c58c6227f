// A GoogleTest program with a case that is skipped and one that is not: what test_results_test.py reads.

#include <gtest/gtest.h>

TEST(Cases, isSkipped) {
    GTEST_SKIP() << "this file system has no extended attributes";
}

TEST(Cases, passes) {
    SUCCEED();
}
