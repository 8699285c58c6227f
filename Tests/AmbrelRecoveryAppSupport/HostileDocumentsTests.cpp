// What an engine may print in the place of a document.

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryExportDocument.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryInspectionDocument.h"
#include "AmbrelRecoveryAppSupport/DocumentDecodingError.h"
#include "DocumentText.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <ostream>
#include <random>
#include <string>
#include <string_view>

namespace {

/// One kind of document: how it is decoded, and a valid text of it.
struct Decoder {
    const char* name;
    void (*decode)(std::string_view);
    DocumentText valid;

    /// Whether the text is refused in the one way in which it may be.
    bool refuses(std::string_view text) const {
        try {
            decode(text);
        } catch (const DocumentDecodingError&) {
            return true;
        }
        return false;
    }
};

void PrintTo(const Decoder& decoder, std::ostream* stream) {
    *stream << decoder.name;
}

class HostileDocumentsTest : public testing::TestWithParam<Decoder> {};

std::string repeated(std::string_view text, std::size_t count) {
    std::string result;
    result.reserve(text.size() * count);
    for (std::size_t index = 0; index < count; ++index) {
        result += text;
    }
    return result;
}

constexpr std::size_t hundredMegabytes = 100'000'000;

} // namespace

INSTANTIATE_TEST_SUITE_P(
    , HostileDocumentsTest,
    testing::Values(Decoder{"Inspection", [](std::string_view text) { AmbrelRecoveryInspectionDocument::decode(text); },
                            DocumentText::inspection()},
                    Decoder{"Export", [](std::string_view text) { AmbrelRecoveryExportDocument::decode(text); },
                            DocumentText::exported()}),
    [](const auto& information) { return information.param.name; });

TEST_P(HostileDocumentsTest, theValidTextIsAccepted) {
    EXPECT_FALSE(GetParam().refuses(GetParam().valid.text()));
}

TEST_P(HostileDocumentsTest, textThatIsNotADocumentIsRefused) {
    for (const std::string_view text :
         {"",          " ",    "\n",           "null",     "true",       "0",   "1.5",  "\"text\"",
          "[]",        "[{}]", "{}",           "{",        "}",          "[",   "]",    "\"",
          ":",         ",",    "{\"a\"}",      "{\"a\":}", "{\"a\":1,}", "{,}", "{}{}", "<xml/>",
          "#!/bin/sh", "\xFF", "\xEF\xBB\xBF", "\\"}) {
        EXPECT_TRUE(GetParam().refuses(text)) << text;
    }
    EXPECT_TRUE(GetParam().refuses(std::string_view()));
    EXPECT_TRUE(GetParam().refuses(std::string_view("\0", 1)));
    EXPECT_TRUE(GetParam().refuses("[" + GetParam().valid.text() + "]"));
}

TEST_P(HostileDocumentsTest, aDocumentCutOffAtAnyByteIsRefused) {
    const std::string text = GetParam().valid.text();
    for (std::size_t length = 0; length < text.size(); ++length) {
        // A copy of its own size, so that reading beyond its end would be seen.
        const std::string cut(text, 0, length);
        EXPECT_TRUE(GetParam().refuses(cut)) << cut;
    }
}

TEST_P(HostileDocumentsTest, onlyBlanksMaySurroundTheDocument) {
    const std::string text = GetParam().valid.text();
    for (const std::string_view blanks : {" ", "\t", "\r\n", "\n\n\n", " \t\r\n"}) {
        EXPECT_FALSE(GetParam().refuses(text + std::string(blanks)));
        EXPECT_FALSE(GetParam().refuses(std::string(blanks) + text));
    }
    using namespace std::string_view_literals;
    for (const std::string_view rest : {"x"sv, "\nok"sv, "{}"sv, "}"sv, ","sv, "null"sv, "\0"sv, " \0"sv, "\v"sv,
                                        "\xC2\xA0"sv, "\xFF"sv, "// done"sv}) {
        EXPECT_TRUE(GetParam().refuses(text + std::string(rest))) << rest;
        EXPECT_TRUE(GetParam().refuses(std::string(rest) + text)) << rest;
    }
    EXPECT_TRUE(GetParam().refuses(text + text));
    EXPECT_TRUE(GetParam().refuses(text + "\n" + text));
}

TEST_P(HostileDocumentsTest, onlyUTF8WithAtMostOneByteOrderMarkIsAccepted) {
    const std::string text = GetParam().valid.text();
    const std::string mark = "\xEF\xBB\xBF";
    EXPECT_FALSE(GetParam().refuses(mark + text));
    EXPECT_FALSE(GetParam().refuses(mark + "\n" + text));
    EXPECT_TRUE(GetParam().refuses(mark + mark + text));
    EXPECT_TRUE(GetParam().refuses("\n" + mark + text));
    EXPECT_TRUE(GetParam().refuses(text + mark));
    std::string wide;
    for (const char character : text) {
        wide += character;
        wide += '\0';
    }
    EXPECT_TRUE(GetParam().refuses(wide));
    EXPECT_TRUE(GetParam().refuses("\xFF\xFE" + wide));
}

TEST_P(HostileDocumentsTest, invalidTextIsRefusedEvenUnderUnknownKeys) {
    for (const std::string_view value : {"\"\xFF\"",
                                         "\"\xED\xA0\x80\"",
                                         "\"\xC0\x80\"",
                                         "\"\\ud800\"",
                                         "\"\\udc00\"",
                                         "\"\\ud800\\ud800\"",
                                         "\"\\u\"",
                                         "\"\\a\"",
                                         "\"\n\"",
                                         "\"\x01\"",
                                         "nil",
                                         "01",
                                         "1.",
                                         "01e400",
                                         "1.e400",
                                         "1e",
                                         "+1e400",
                                         "[1e400 1e400]",
                                         "1e400x",
                                         "\"\\\"1e400",
                                         "[1 2]",
                                         "{1:2}",
                                         "{\"a\":1 \"b\":2}"}) {
        EXPECT_TRUE(GetParam().refuses(GetParam().valid.withFirst("document", "unknown", value).text())) << value;
        EXPECT_TRUE(GetParam().refuses(GetParam().valid.withLast("document", "unknown", value).text())) << value;
    }
    EXPECT_TRUE(GetParam().refuses(GetParam().valid.withLast("document", "\xFF", "1").text()));
    EXPECT_TRUE(GetParam().refuses(GetParam().valid.withLast("document", "\\ud800", "1").text()));
}

TEST_P(HostileDocumentsTest, aRawZeroByteIsRefusedAndAnEscapedOneIsACharacter) {
    using namespace std::string_view_literals;
    const DocumentText& valid = GetParam().valid;
    EXPECT_TRUE(GetParam().refuses(valid.with("document", "schemaIdentifier", "\"a\0b\""sv).text()));
    EXPECT_TRUE(GetParam().refuses(valid.with("document", "schemaIdentifier", "\"a\"\0"sv).text()));
    EXPECT_FALSE(GetParam().refuses(valid.with("document", "schemaIdentifier", "\"a\\u0000b\"").text()));
}

TEST_P(HostileDocumentsTest, theFirstOfTwoEqualKeysCounts) {
    const DocumentText& valid = GetParam().valid;
    EXPECT_FALSE(GetParam().refuses(valid.withLast("document", "schemaIdentifier", "null").text()));
    EXPECT_TRUE(GetParam().refuses(valid.withFirst("document", "schemaIdentifier", "null").text()));
    EXPECT_FALSE(GetParam().refuses(valid.withFirst("document", "schemaIdentifier", "\"other\"").text()));
}

TEST_P(HostileDocumentsTest, anEscapedKeyEqualsThePlainOne) {
    const DocumentText& valid = GetParam().valid;
    EXPECT_FALSE(GetParam().refuses(valid.without("document", "schemaIdentifier")
                                        .withLast("document", "schema\\u0049dentifier", "\"text\"")
                                        .text()));
}

TEST_P(HostileDocumentsTest, numbersUnderUnknownKeysMayHaveAnySize) {
    for (const std::string& number :
         {"0." + std::string(400, '3'), std::string("18446744073709551615"), std::string("18446744073709551616"),
          "-" + std::string(400, '9'), std::string("-1.5e300"), std::string("1e-400"), std::string("1e400"),
          std::string("-1.5E+99999999999999999999"), "[" + std::string(100'000, '9') + ".0]"}) {
        EXPECT_FALSE(GetParam().refuses(GetParam().valid.withLast("document", "unknown", number).text())) << number;
    }
}

TEST_P(HostileDocumentsTest, excessiveNestingIsRefused) {
    constexpr std::size_t count = 200'000;
    const DocumentText& valid = GetParam().valid;
    EXPECT_TRUE(GetParam().refuses(repeated("[", count)));
    EXPECT_TRUE(GetParam().refuses(repeated("{\"a\":", count)));
    EXPECT_TRUE(GetParam().refuses(repeated("[", count) + repeated("]", count)));
    EXPECT_TRUE(GetParam().refuses(repeated("]", count)));
    EXPECT_TRUE(GetParam().refuses(valid.withFirst("document", "unknown", repeated("[", count)).text()));
    EXPECT_TRUE(
        GetParam().refuses(valid.withFirst("document", "unknown", repeated("[", count) + repeated("]", count)).text()));
    EXPECT_TRUE(GetParam().refuses(
        valid.withFirst("document", "unknown", repeated("{\"a\":", count) + "1" + repeated("}", count)).text()));
}

TEST_P(HostileDocumentsTest, plausibleNestingIsAccepted) {
    const std::string nested = repeated("[", 500) + repeated("]", 500);
    EXPECT_FALSE(GetParam().refuses(GetParam().valid.withFirst("document", "unknown", nested).text()));
}

TEST_P(HostileDocumentsTest, manyUnknownKeysAreIgnored) {
    std::string text = GetParam().valid.text();
    std::string keys;
    for (int index = 0; index < 100'000; ++index) {
        keys += "\"unknown " + std::to_string(index) + "\":" + std::to_string(index) + ",";
    }
    text.insert(1, keys);
    EXPECT_FALSE(GetParam().refuses(text));
}

TEST_P(HostileDocumentsTest, aHundredMegabytesAreDecodedOrRefusedLikeAnyOtherText) {
    const DocumentText& valid = GetParam().valid;
    const std::string flood(hundredMegabytes, 'x');
    EXPECT_FALSE(GetParam().refuses(valid.withFirst("document", "unknown", "\"" + flood + "\"").text()));
    EXPECT_TRUE(GetParam().refuses(valid.withFirst("document", "unknown", "\"" + flood).text()));
    EXPECT_TRUE(GetParam().refuses(flood));
    EXPECT_TRUE(GetParam().refuses(std::string(hundredMegabytes, '[')));
}

TEST_P(HostileDocumentsTest, aTextLongerThanAnyListOfSnapshotsIsRefused) {
    constexpr std::size_t longest = 536'870'912;
    std::string text = GetParam().valid.text();
    text.resize(longest, ' ');
    EXPECT_FALSE(GetParam().refuses(text));
    text.push_back(' ');
    EXPECT_TRUE(GetParam().refuses(text));
}

TEST_P(HostileDocumentsTest, damagedTextIsEitherDecodedOrRefused) {
    const std::string text = GetParam().valid.text();
    constexpr std::string_view interesting("\"\\{}[]:,\0\xFF\n0-.eE", 16);
    std::mt19937 random(20241231);
    int refused = 0;
    for (int round = 0; round < 5000; ++round) {
        std::string damaged = text;
        for (std::size_t change = 0; change <= random() % 3; ++change) {
            const std::size_t place = random() % damaged.size();
            switch (random() % 4) {
            case 0:
                damaged[place] = static_cast<char>(random());
                break;
            case 1:
                damaged[place] = interesting[random() % interesting.size()];
                break;
            case 2:
                damaged.erase(place, 1 + random() % 5);
                break;
            default:
                damaged.insert(place, damaged.substr(random() % damaged.size(), random() % 20));
            }
        }
        refused += GetParam().refuses(damaged) ? 1 : 0;
    }
    EXPECT_GT(refused, 2500);
    EXPECT_LT(refused, 5000);
}

TEST(HostileInspectionDocumentTest, aHundredMegabytesOfSnapshotsAreDecoded) {
    const std::string snapshotText = [] {
        const std::string text =
            DocumentText::inspection().withLast("snapshot", "unknown", "\"" + std::string(20'000, 'x') + "\"").text();
        const std::string_view beginning = "\"snapshots\":[";
        const std::size_t start = text.find(beginning) + beginning.size();
        return text.substr(start, text.rfind(']') - start);
    }();
    const std::size_t count = hundredMegabytes / snapshotText.size() + 1;
    const std::string list = "[" + repeated(snapshotText + ",", count - 1) + snapshotText + "]";
    const AmbrelRecoveryInspectionDocument document =
        AmbrelRecoveryInspectionDocument::decode(DocumentText::inspection().with("document", "snapshots", list).text());
    EXPECT_EQ(document.snapshots.size(), count);
    EXPECT_TRUE(document.snapshots.back() == document.snapshots.front());
    EXPECT_EQ(document.recommendedSnapshotCode(), std::nullopt);
}

TEST(HostileInspectionDocumentTest, tensOfThousandsOfSnapshotsAreDecoded) {
    constexpr std::size_t count = 30'000;
    const std::string text = DocumentText::inspection().text();
    const std::string_view beginning = "\"snapshots\":[";
    const std::size_t start = text.find(beginning) + beginning.size();
    const std::string snapshotText = text.substr(start, text.rfind(']') - start);
    std::string many = text;
    many.insert(start, repeated(snapshotText + ",", count - 1));
    EXPECT_EQ(AmbrelRecoveryInspectionDocument::decode(many).snapshots.size(), count);
}
