#include "Format/RecoveryKey.h"

#include "Common/Bytes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <string>

namespace {

std::string textOf(const SecretBytes& secret) {
    return {secret.bytes().begin(), secret.bytes().end()};
}

std::optional<std::string> parsed(std::string_view typed) {
    const std::optional<SecretBytes> key = RecoveryKey::parse(SecretBytes::copyOf(bytesOf(typed)));
    return key ? std::optional(textOf(*key)) : std::nullopt;
}

SecretBytes keyOf(std::uint8_t byte) {
    SecretBytes key(16);
    std::ranges::fill(key.bytes(), byte);
    return key;
}

} // namespace

TEST(RecoveryKeyTest, isPrintedInSixGroupsOfFive) {
    EXPECT_THAT(textOf(RecoveryKey::print(RecoveryKey::generate())),
                testing::MatchesRegex("([0-9A-HJKMNP-TV-Z]{5}-){5}[0-9A-HJKMNP-TV-Z]{5}"));
}

TEST(RecoveryKeyTest, survivesTheRoundTrip) {
    for (int round = 0; round < 100; ++round) {
        const SecretBytes key = RecoveryKey::generate();
        EXPECT_EQ(textOf(key), parsed(textOf(RecoveryKey::print(key))));
    }
}

TEST(RecoveryKeyTest, twoAreNeverTheSame) {
    EXPECT_NE(textOf(RecoveryKey::generate()), textOf(RecoveryKey::generate()));
}

TEST(RecoveryKeyTest, caseSpacesAndDashesDoNotMatter) {
    const std::string printed = textOf(RecoveryKey::print(keyOf(0xA5)));
    std::string lower = printed;
    std::ranges::transform(lower, lower.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    std::string bare = printed;
    std::erase(bare, '-');
    std::string spread = "\t";
    for (const char character : bare) {
        spread += character;
        spread += "\u00A0\u2014 ";
    }
    for (const std::string& typed : {lower, bare, spread, "  " + printed + "\r\n"}) {
        EXPECT_EQ(textOf(keyOf(0xA5)), parsed(typed)) << typed;
    }
}

TEST(RecoveryKeyTest, lookalikesAreAccepted) {
    // All bits are zero: the printed key begins with many zeros.
    std::string typed = textOf(RecoveryKey::print(keyOf(0)));
    std::ranges::replace(typed, '0', 'O');
    std::ranges::replace(typed, '1', 'l');
    EXPECT_EQ(textOf(keyOf(0)), parsed(typed));
    std::ranges::replace(typed, 'O', 'o');
    std::ranges::replace(typed, 'l', 'I');
    EXPECT_EQ(textOf(keyOf(0)), parsed(typed));
}

TEST(RecoveryKeyTest, everySingleWrongCharacterIsNoticed) {
    const std::string printed = textOf(RecoveryKey::print(keyOf(0x3C)));
    for (std::size_t index = 0; index < printed.size(); ++index) {
        for (const char other : std::string_view("0123456789ABCDEFGHJKMNPQRSTVWXYZ")) {
            std::string typed = printed;
            if (typed[index] == '-' || typed[index] == other) {
                continue;
            }
            typed[index] = other;
            EXPECT_FALSE(parsed(typed)) << typed;
        }
    }
}

TEST(RecoveryKeyTest, twoSwappedNeighborsAreNoticed) {
    const std::string printed = textOf(RecoveryKey::print(RecoveryKey::generate()));
    for (std::size_t index = 0; index + 1 < printed.size(); ++index) {
        std::string typed = printed;
        std::swap(typed[index], typed[index + 1]);
        if (typed[index] != typed[index + 1] && typed[index] != '-' && typed[index + 1] != '-') {
            EXPECT_FALSE(parsed(typed)) << typed;
        }
    }
}

TEST(RecoveryKeyTest, anythingElseIsRefused) {
    const std::string printed = textOf(RecoveryKey::print(keyOf(0x11)));
    for (const std::string& typed : {std::string(), std::string("-----"), printed.substr(1), printed + "0",
                                     printed + printed, "U" + printed.substr(1), printed + "!", printed + "\xFF"}) {
        EXPECT_FALSE(parsed(typed)) << typed;
    }
}
