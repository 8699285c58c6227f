#include "AmbrelRecoveryAppSupport/AmbrelRecoveryCredentialSession.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <barrier>
#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

using enum AmbrelRecoveryAppFactor;

TEST(AmbrelRecoveryCredentialSessionConcurrencyTest, givesTheWholeCredentialOrNone) {
    // More than a page, so that a copy takes time.
    const std::string text(10000, 'x');
    const auto isWhole = [&text](const SecretBytes& bytes) {
        return std::ranges::equal(bytes.bytes(), std::as_bytes(std::span(text.data(), text.size())));
    };
    for (int round = 0; round < 100; ++round) {
        AmbrelRecoveryCredentialSession session(
            recoveryKey, SecretBytes::copyOf(std::as_bytes(std::span(text.data(), text.size()))));
        std::barrier together(3);
        std::vector<std::thread> readers;
        for (int reader = 0; reader < 2; ++reader) {
            readers.emplace_back([&] {
                together.arrive_and_wait();
                const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
                std::optional<SecretBytes> copy;
                while ((copy = session.credential(recoveryKey)) && std::chrono::steady_clock::now() < deadline) {
                    EXPECT_TRUE(isWhole(*copy));
                }
                EXPECT_FALSE(copy);
                EXPECT_FALSE(session.containsCredential(recoveryKey));
            });
        }
        together.arrive_and_wait();
        session.invalidate();
        for (std::thread& reader : readers) {
            reader.join();
        }
    }
}

TEST(AmbrelRecoveryCredentialSessionConcurrencyTest, mayBeInvalidatedFromManyThreadsAtOnce) {
    for (int round = 0; round < 100; ++round) {
        AmbrelRecoveryCredentialSession session(backupPassphrase, SecretBytes(100));
        std::vector<std::thread> threads;
        for (int thread = 0; thread < 3; ++thread) {
            threads.emplace_back([&] { session.invalidate(); });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        EXPECT_FALSE(session.containsCredential(backupPassphrase));
    }
}
