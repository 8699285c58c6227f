#include "AmbrelRecoveryAppSupport/AmbrelRecoveryCredentialSession.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

namespace {

using enum AmbrelRecoveryAppFactor;

SecretBytes secret(std::string_view text) {
    return SecretBytes::copyOf(std::as_bytes(std::span(text.data(), text.size())));
}

std::optional<std::string> textOf(const std::optional<SecretBytes>& bytes) {
    if (!bytes) {
        return std::nullopt;
    }
    std::string text;
    for (const std::byte byte : bytes->bytes()) {
        text += static_cast<char>(byte);
    }
    return text;
}

void expectNoCredential(const AmbrelRecoveryCredentialSession& session) {
    for (const AmbrelRecoveryAppFactor factor : allRecoveryAppFactors) {
        EXPECT_EQ(textOf(session.credential(factor)), std::nullopt);
        EXPECT_FALSE(session.containsCredential(factor));
    }
}

} // namespace

TEST(AmbrelRecoveryCredentialSessionTest, knowsItsFactor) {
    EXPECT_EQ(AmbrelRecoveryCredentialSession(recoveryKey, secret("x")).factor(), recoveryKey);
    EXPECT_EQ(AmbrelRecoveryCredentialSession(backupPassphrase, secret("x")).factor(), backupPassphrase);
}

TEST(AmbrelRecoveryCredentialSessionTest, givesTheBytesUnchangedForItsFactor) {
    using namespace std::string_view_literals;
    for (const std::string_view text : {"a"sv, "  with blanks  "sv, "line\nfeed\n"sv, "\0"sv, "nul\0inside"sv,
                                        "caf\xC3\xA9"sv, "\xFF\xFE"sv, "\xEF\xBB\xBF"sv}) {
        const AmbrelRecoveryCredentialSession session(recoveryKey, secret(text));
        EXPECT_TRUE(session.containsCredential(recoveryKey));
        EXPECT_EQ(textOf(session.credential(recoveryKey)), text);
    }
}

TEST(AmbrelRecoveryCredentialSessionTest, givesNothingForTheOtherFactor) {
    const AmbrelRecoveryCredentialSession passphrase(backupPassphrase, secret("passphrase"));
    EXPECT_EQ(textOf(passphrase.credential(recoveryKey)), std::nullopt);
    EXPECT_FALSE(passphrase.containsCredential(recoveryKey));
    const AmbrelRecoveryCredentialSession key(recoveryKey, secret("key"));
    EXPECT_EQ(textOf(key.credential(backupPassphrase)), std::nullopt);
    EXPECT_FALSE(key.containsCredential(backupPassphrase));
}

TEST(AmbrelRecoveryCredentialSessionTest, treatsEmptyBytesAsNoCredential) {
    expectNoCredential(AmbrelRecoveryCredentialSession(backupPassphrase, SecretBytes()));
    expectNoCredential(AmbrelRecoveryCredentialSession(backupPassphrase, SecretBytes(0)));
    expectNoCredential(AmbrelRecoveryCredentialSession(recoveryKey, secret("")));
}

TEST(AmbrelRecoveryCredentialSessionTest, givesNothingAfterInvalidation) {
    AmbrelRecoveryCredentialSession session(backupPassphrase, secret("passphrase"));
    session.invalidate();
    expectNoCredential(session);
    EXPECT_EQ(session.factor(), backupPassphrase);
    session.invalidate();
    expectNoCredential(session);
}

TEST(AmbrelRecoveryCredentialSessionTest, givesEveryCallerACopyOfItsOwn) {
    AmbrelRecoveryCredentialSession session(backupPassphrase, secret("passphrase"));
    std::optional<SecretBytes> first = session.credential(backupPassphrase);
    std::optional<SecretBytes> second = session.credential(backupPassphrase);
    first->wipe();
    EXPECT_EQ(textOf(second), "passphrase");
    EXPECT_EQ(textOf(session.credential(backupPassphrase)), "passphrase");
    session.invalidate();
    EXPECT_EQ(textOf(second), "passphrase") << "a copy belongs to its receiver";
}
