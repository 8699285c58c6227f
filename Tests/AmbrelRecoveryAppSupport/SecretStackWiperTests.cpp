#include "AmbrelRecoveryAppSupport/SecretStackWiper.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include <pthread.h>

namespace {

constexpr std::size_t stackSize = std::size_t{1024} * 1024;
constexpr std::size_t stackAlignment = 4096;
constexpr std::size_t secretSize = std::size_t{16} * 1024;
// The frames of the functions after it lie over its ends.
constexpr std::size_t overwrittenByOthers = 1024;
/// Between the frames; sanitizers leave most.
constexpr std::size_t padding = 512;
constexpr std::byte mark{0xA7};

/// Stands for any function that keeps a secret in a variable and forgets it there. The address sanitizer would put the
/// variable elsewhere.
[[gnu::noinline, gnu::no_sanitize_address]] void leaveSecretOnStack() {
    std::array<volatile std::byte, secretSize> secret;
    for (volatile std::byte& byte : secret) {
        byte = mark;
    }
}

void* handleSecret(void* wipes) {
    std::optional<SecretStackWiper> wiper;
    if (*static_cast<bool*>(wipes)) {
        wiper.emplace();
    }
    leaveSecretOnStack();
    return nullptr;
}

/// How many bytes of the secret are left on the stack of a thread that handled it and has ended.
std::size_t bytesLeftOnStack(bool wipes) {
    std::vector<std::byte> memory(stackSize + stackAlignment);
    void* stack = memory.data();
    std::size_t space = memory.size();
    std::align(stackAlignment, stackSize, stack, space);
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    EXPECT_EQ(pthread_attr_setstack(&attributes, stack, stackSize), 0);
    pthread_t thread{};
    EXPECT_EQ(pthread_create(&thread, &attributes, handleSecret, &wipes), 0);
    EXPECT_EQ(pthread_join(thread, nullptr), 0);
    pthread_attr_destroy(&attributes);
    return static_cast<std::size_t>(std::ranges::count(memory, mark));
}

} // namespace

TEST(SecretStackWiperTest, wipesWhatEarlierFunctionsLeftOnTheStack) {
    EXPECT_GE(bytesLeftOnStack(false), secretSize - overwrittenByOthers);
    EXPECT_LT(bytesLeftOnStack(true), padding);
}
