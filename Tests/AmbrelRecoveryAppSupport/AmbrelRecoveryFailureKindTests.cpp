#include "AmbrelRecoveryAppSupport/AmbrelRecoveryFailureKind.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace {

using enum AmbrelRecoveryFailureKind;
using enum AmbrelRecoveryAppFactor;

struct Row {
    std::string_view text;
    AmbrelRecoveryFailureKind withPassphrase;
    AmbrelRecoveryFailureKind withRecoveryKey;

    AmbrelRecoveryFailureKind kind(AmbrelRecoveryAppFactor factor) const {
        return factor == recoveryKey ? withRecoveryKey : withPassphrase;
    }
};

/// In the order in which the first one decides.
constexpr std::array rows = {
    Row{"did not unlock", wrongPassphrase, wrongRecoveryKey},
    Row{"credential is invalid", wrongPassphrase, wrongRecoveryKey},
    Row{"invalid or unsupported", invalidPackage, invalidPackage},
    Row{"package is unavailable", packageUnavailable, packageUnavailable},
    Row{"integrity verification failed", integrityFailure, integrityFailure},
    Row{"destination already exists", destinationExists, destinationExists},
    Row{"destination is unavailable", destinationUnavailable, destinationUnavailable},
    Row{"output could not be written", destinationUnavailable, destinationUnavailable},
};

AmbrelRecoveryFailureKind kindOf(std::string_view standardError, AmbrelRecoveryAppFactor factor, int exitCode = 1) {
    return classify({exitCode, "standard output is not looked at: did not unlock", std::string(standardError)}, factor);
}

std::string upperCased(std::string_view text) {
    std::string upper;
    for (const char character : text) {
        upper += character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
    }
    return upper;
}

/// With every other letter as a capital.
std::string alternating(std::string_view text) {
    std::string result(text);
    for (std::size_t index = 0; index < result.size(); index += 2) {
        result[index] = upperCased(text)[index];
    }
    return result;
}

} // namespace

TEST(AmbrelRecoveryFailureKindTest, followsTheText) {
    for (const AmbrelRecoveryAppFactor factor : allRecoveryAppFactors) {
        for (const Row& row : rows) {
            const std::string text(row.text);
            EXPECT_EQ(kindOf(text, factor), row.kind(factor)) << text;
            EXPECT_EQ(kindOf("ambrel-recovery: the " + text + ".\n", factor), row.kind(factor)) << text;
            EXPECT_EQ(kindOf("first line\n" + text + "\nlast line\n", factor), row.kind(factor)) << text;
        }
    }
}

TEST(AmbrelRecoveryFailureKindTest, ignoresTheCaseOfTheText) {
    for (const AmbrelRecoveryAppFactor factor : allRecoveryAppFactors) {
        for (const Row& row : rows) {
            EXPECT_EQ(kindOf(upperCased(row.text), factor), row.kind(factor)) << row.text;
            EXPECT_EQ(kindOf(alternating(row.text), factor), row.kind(factor)) << row.text;
        }
    }
}

TEST(AmbrelRecoveryFailureKindTest, takesTheKelvinSignForAK) {
    // The sign for kelvin in lower case is the letter k.
    EXPECT_EQ(kindOf("DID NOT UNLOC\xE2\x84\xAA", backupPassphrase), wrongPassphrase);
    EXPECT_EQ(kindOf("PAC\xE2\x84\xAA"
                     "AGE IS UNAVAILABLE",
                     recoveryKey),
              packageUnavailable);
}

TEST(AmbrelRecoveryFailureKindTest, ofTwoTextsIsThatOfTheUpperRowWhicheverTextComesFirst) {
    for (const AmbrelRecoveryAppFactor factor : allRecoveryAppFactors) {
        for (std::size_t upper = 0; upper < rows.size(); ++upper) {
            for (std::size_t lower = upper + 1; lower < rows.size(); ++lower) {
                const std::string first(rows[upper].text);
                const std::string second(rows[lower].text);
                for (const std::string& text :
                     {first + second, second + first, first + "\n" + second, second + ": " + upperCased(first)}) {
                    EXPECT_EQ(kindOf(text, factor), rows[upper].kind(factor)) << text;
                }
            }
        }
    }
}

TEST(AmbrelRecoveryFailureKindTest, needsTheWholeText) {
    for (const Row& row : rows) {
        for (std::size_t missing = 0; missing < row.text.size(); ++missing) {
            std::string text(row.text);
            text.erase(missing, 1);
            EXPECT_EQ(kindOf(text, recoveryKey), generic) << text;
        }
        std::string broken(row.text);
        broken[broken.find(' ')] = '\n';
        EXPECT_EQ(kindOf(broken, recoveryKey), generic) << "a line feed is no blank";
    }
}

TEST(AmbrelRecoveryFailureKindTest, followsTheTextWhateverTheStatus) {
    for (const int exitCode : {0, 1, 2, 9, 11, 14, 16, 127, 128, 143, 255, -1, -14, -16}) {
        for (const Row& row : rows) {
            EXPECT_EQ(kindOf(row.text, recoveryKey, exitCode), row.kind(recoveryKey)) << exitCode;
        }
        EXPECT_EQ(kindOf("", recoveryKey, exitCode), generic) << exitCode;
    }
}

TEST(AmbrelRecoveryFailureKindTest, ofATerminatedEngineIsACancellationWhateverTheText) {
    for (const AmbrelRecoveryAppFactor factor : allRecoveryAppFactors) {
        for (const int exitCode : {15, -15}) {
            for (const Row& row : rows) {
                EXPECT_EQ(kindOf(row.text, factor, exitCode), cancelled) << row.text;
            }
            EXPECT_EQ(kindOf("", factor, exitCode), cancelled);
            EXPECT_EQ(kindOf("\xFF", factor, exitCode), cancelled);
        }
    }
}

TEST(AmbrelRecoveryFailureKindTest, ofAnUnknownTextIsGeneric) {
    for (const AmbrelRecoveryAppFactor factor : allRecoveryAppFactors) {
        for (const std::string_view text : {"", " ", "\n", "something else went wrong", "unlock", "package"}) {
            EXPECT_EQ(kindOf(text, factor), generic) << text;
        }
    }
}

TEST(AmbrelRecoveryFailureKindTest, ofTextThatIsNotUTF8IsGeneric) {
    for (const std::string_view invalid :
         {"\xFF", "\xFE", "\x80", "\xBF", "\xC0\xAF", "\xC1\x81", "\xC3", "\xE0\x80\xAF", "\xE2\x82", "\xED\xA0\x80",
          "\xED\xBF\xBF", "\xF0\x80\x80\xAF", "\xF0\x9F\x92", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80",
          "\xF8\x88\x80\x80\x80"}) {
        for (const Row& row : rows) {
            const std::string text(row.text);
            EXPECT_EQ(kindOf(invalid, recoveryKey), generic);
            EXPECT_EQ(kindOf(text + std::string(invalid), recoveryKey), generic);
            EXPECT_EQ(kindOf(std::string(invalid) + text, recoveryKey), generic);
            EXPECT_EQ(kindOf(text + std::string(100, '.') + std::string(invalid) + " and more", recoveryKey), generic);
        }
    }
}

TEST(AmbrelRecoveryFailureKindTest, findsTheTextAmongOtherUTF8Characters) {
    const std::string text(rows[3].text);
    for (const std::string_view around : {"\xC3\xA9", "\xE2\x82\xAC", "\xED\x9F\xBF", "\xEF\xBF\xBD",
                                          "\xF0\x9F\x92\xBE", "\xF4\x8F\xBF\xBF", "\xEF\xBB\xBF"}) {
        EXPECT_EQ(kindOf(std::string(around) + text + std::string(around), backupPassphrase), packageUnavailable);
    }
    EXPECT_EQ(kindOf(std::string("\0", 1) + text + std::string("\0", 1), backupPassphrase), packageUnavailable);
}

TEST(AmbrelRecoveryFailureKindTest, findsTheTextInAFlood) {
    const std::string flood(2'000'000, 'x');
    EXPECT_EQ(kindOf(flood + "did not unlock" + flood, recoveryKey), wrongRecoveryKey);
    EXPECT_EQ(kindOf(flood, recoveryKey), generic);
}
