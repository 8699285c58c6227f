#include <gtest/gtest.h>
#include <sodium.h>

#include <csignal>

int main(int argumentCount, char** arguments) {
    testing::InitGoogleTest(&argumentCount, arguments);
    // A program that ends without reading its credential is for the test to judge.
    std::signal(SIGPIPE, SIG_IGN);
    return sodium_init() < 0 ? 1 : RUN_ALL_TESTS();
}
