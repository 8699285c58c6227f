#include "AmbrelRecoveryAppSupport/AmbrelRecoveryInspectionDocument.h"

#include "AmbrelRecoveryAppSupport/DocumentDecodingError.h"
#include "DocumentField.h"
#include "DocumentText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <type_traits>

namespace {

using Document = AmbrelRecoveryInspectionDocument;

Document decoded(const DocumentText& text) {
    return Document::decode(text.text());
}

bool isRefused(const DocumentText& text) {
    try {
        decoded(text);
    } catch (const DocumentDecodingError&) {
        return true;
    }
    return false;
}

const DocumentText valid = DocumentText::inspection();

const Document expected = {
    .schemaIdentifier = "com.ambrel.recovery.cli-inspection.v1",
    .formatIdentifier = "com.ambrel.backup.v1",
    .formatVersion = 1,
    .unlockedFactor = "recovery-key",
    .branchDisposition = "single-head",
    .canonicalTipSelectionCode = "code-1",
    .authenticatedCommitCount = 2,
    .authenticatedHeadCount = 3,
    .maximumWriterEpoch = 4,
    .preservedBranches = {{"code-1", {"code-1", "code-2"}}},
    .snapshots = {{
        .selectionCode = "code-1",
        .createdAtUTCMilliseconds = 1735689599000,
        .writerEpoch = 5,
        .generation = 6,
        .retainedTip = true,
        .counts = {9, 10, 11, 12, 13, 14},
        .logicalPlaintextByteCount = 7,
        .encryptedPayloadByteCount = 8,
        .payloadFileEvidence = {true, 15, 16, 17, 18, 19},
    }},
};

/// A document with this disposition and, for each sign, a snapshot: "+" is a retained tip. Their codes are "0", "1",
/// ...
Document withSnapshots(std::string_view disposition, std::string_view signs) {
    std::vector<Document::Snapshot> snapshots;
    for (std::size_t index = 0; index < signs.size(); ++index) {
        snapshots.push_back({.selectionCode = std::to_string(index), .retainedTip = signs[index] == '+'});
    }
    return {.branchDisposition = std::string(disposition), .snapshots = std::move(snapshots)};
}

static_assert(!std::is_assignable_v<Document&, Document> &&
                  !std::is_assignable_v<Document::Snapshot&, Document::Snapshot>,
              "an inspection never changes");

} // namespace

TEST(AmbrelRecoveryInspectionDocumentTest, decodesEveryKey) {
    EXPECT_TRUE(decoded(valid) == expected);
}

TEST(AmbrelRecoveryInspectionDocumentTest, keepsTheOrderOfTheEngine) {
    std::string text = valid.text();
    const std::size_t start = text.find("\"snapshots\":[") + std::string_view("\"snapshots\":[").size();
    const std::string snapshot = text.substr(start, text.rfind(']') - start);
    std::string others;
    for (const char* const code : {"z", "a", "m"}) {
        std::string other = snapshot;
        others += other.replace(other.find("code-1"), std::string_view("code-1").size(), code) + ",";
    }
    text.insert(start, others);
    std::vector<std::string> codes;
    std::ranges::transform(Document::decode(text).snapshots, std::back_inserter(codes), &Document::Snapshot::id);
    EXPECT_EQ(codes, (std::vector<std::string>{"z", "a", "m", "code-1"}));
}

TEST(AmbrelRecoveryInspectionDocumentTest, expectsItsIdentifiers) {
    EXPECT_EQ(Document::expectedSchemaIdentifier, "com.ambrel.recovery.cli-inspection.v1");
    EXPECT_EQ(Document::expectedFormatIdentifier, "com.ambrel.backup.v1");
}

TEST(AmbrelRecoveryInspectionDocumentTest, leavesTheComparisonOfTheIdentifiersToTheConsumer) {
    const Document other = decoded(valid.with("document", "schemaIdentifier", "\"com.ambrel.recovery.cli-export.v1\"")
                                       .with("document", "formatIdentifier", "\"com.ambrel.backup.v2\""));
    EXPECT_NE(other.schemaIdentifier, Document::expectedSchemaIdentifier);
    EXPECT_NE(other.formatIdentifier, Document::expectedFormatIdentifier);
}

TEST(AmbrelRecoveryInspectionDocumentTest, refusesADocumentWithoutOneOfItsKeys) {
    for (const DocumentField& field : DocumentField::inspection()) {
        EXPECT_EQ(isRefused(valid.without(field.level, field.key)), field.kind != DocumentField::Kind::optionalText)
            << field.level << "." << field.key;
    }
}

TEST(AmbrelRecoveryInspectionDocumentTest, refusesEveryUnsuitableValue) {
    for (const DocumentField& field : DocumentField::inspection()) {
        for (const std::string& value : field.refusedValues()) {
            EXPECT_TRUE(isRefused(valid.with(field.level, field.key, value)))
                << field.level << "." << field.key << ": " << value;
        }
    }
}

TEST(AmbrelRecoveryInspectionDocumentTest, acceptsEverySuitableValue) {
    for (const DocumentField& field : DocumentField::inspection()) {
        for (const std::string& value : field.acceptedValues()) {
            EXPECT_FALSE(isRefused(valid.with(field.level, field.key, value)))
                << field.level << "." << field.key << ": " << value;
        }
    }
}

TEST(AmbrelRecoveryInspectionDocumentTest, refusesTheWholeDocumentForOneBadElement) {
    EXPECT_TRUE(isRefused(valid.with("document", "snapshots", "[@snapshot, null]")));
    EXPECT_TRUE(isRefused(valid.with("document", "snapshots", "[@snapshot, {}]")));
    EXPECT_TRUE(isRefused(valid.with("document", "preservedBranches", "[@branch, \"code-1\"]")));
}

TEST(AmbrelRecoveryInspectionDocumentTest, acceptsACanonicalTipThatIsAbsentNullOrPresent) {
    EXPECT_EQ(decoded(valid).canonicalTipSelectionCode, "code-1");
    EXPECT_EQ(decoded(valid.without("document", "canonicalTipSelectionCode")).canonicalTipSelectionCode, std::nullopt);
    EXPECT_EQ(decoded(valid.with("document", "canonicalTipSelectionCode", "null")).canonicalTipSelectionCode,
              std::nullopt);
    EXPECT_EQ(decoded(valid.with("document", "canonicalTipSelectionCode", "\"\"")).canonicalTipSelectionCode, "");
}

TEST(AmbrelRecoveryInspectionDocumentTest, keepsTheFullRangeOfItsNumbers) {
    EXPECT_EQ(decoded(valid.with("document", "formatVersion", "18446744073709551615")).formatVersion, UINT64_MAX);
    EXPECT_EQ(decoded(valid.with("counts", "items", "9223372036854775809")).snapshots[0].counts.items,
              9223372036854775809U);
    EXPECT_EQ(decoded(valid.with("snapshot", "generation", "9007199254740993")).snapshots[0].generation,
              9007199254740993U);
    EXPECT_EQ(decoded(valid.with("snapshot", "createdAtUTCMilliseconds", "-9223372036854775808"))
                  .snapshots[0]
                  .createdAtUTCMilliseconds,
              INT64_MIN);
    EXPECT_EQ(decoded(valid.with("snapshot", "createdAtUTCMilliseconds", "-1")).snapshots[0].createdAtUTCMilliseconds,
              -1);
    EXPECT_EQ(decoded(valid.with("evidence", "missingFileCount", "-9007199254740993"))
                  .snapshots[0]
                  .payloadFileEvidence.missingFileCount,
              -9007199254740993);
}

TEST(AmbrelRecoveryInspectionDocumentTest, acceptsAnIntegerByItsValueHoweverItIsSpelled) {
    const std::map<std::string, std::uint64_t> unsignedNumbers = {
        {"5.0", 5},
        {"1e2", 100},
        {"1E+2", 100},
        {"2.50e1", 25},
        {"2500e-2", 25},
        {"0.0", 0},
        {"-0.0", 0},
        {"0e999999999999999999999", 0},
        {"1" + std::string(400, '0') + "e-400", 1},
        {"0." + std::string(400, '0') + "7e401", 7},
        // Doubles could not hold these.
        {"9007199254740993.0", 9007199254740993},
        {"18446744073709551615.00", UINT64_MAX},
        {"1844674407370955161.5e1", UINT64_MAX},
        {"1e19", 10'000'000'000'000'000'000U},
    };
    for (const auto& [number, value] : unsignedNumbers) {
        EXPECT_EQ(decoded(valid.with("counts", "items", number)).snapshots[0].counts.items, value) << number;
    }
    const std::map<std::string, std::int64_t> signedNumbers = {
        {"-5.0", -5},
        {"-1e2", -100},
        {"9223372036854775807.0", INT64_MAX},
        {"-922337203685477580.8e1", INT64_MIN},
    };
    for (const auto& [number, value] : signedNumbers) {
        EXPECT_EQ(
            decoded(valid.with("snapshot", "createdAtUTCMilliseconds", number)).snapshots[0].createdAtUTCMilliseconds,
            value)
            << number;
    }
}

TEST(AmbrelRecoveryInspectionDocumentTest, leavesNumbersInTextsAsTheyAre) {
    const Document document = decoded(valid.with("document", "formatVersion", "1e0")
                                          .with("snapshot", "selectionCode", R"("1e2 \\\" 5.0 \\")")
                                          .with("document", "unlockedFactor", "\"1e400\""));
    EXPECT_EQ(document.snapshots[0].selectionCode, "1e2 \\\" 5.0 \\");
    EXPECT_EQ(document.unlockedFactor, "1e400");
}

TEST(AmbrelRecoveryInspectionDocumentTest, acceptsWhateverTheEngineReports) {
    for (const char* const version : {"0", "2"}) {
        EXPECT_FALSE(isRefused(valid.with("document", "formatVersion", version)));
    }
    EXPECT_EQ(decoded(valid.with("document", "unlockedFactor", "\"a third one\"")).unlockedFactor, "a third one");
    // The engine's verdict counts, not the numbers beside it.
    EXPECT_TRUE(decoded(valid).snapshots[0].payloadFileEvidence.complete);
    EXPECT_FALSE(decoded(valid.with("evidence", "complete", "false").with("evidence", "missingFileCount", "0"))
                     .snapshots[0]
                     .payloadFileEvidence.complete);
}

TEST(AmbrelRecoveryInspectionDocumentTest, decodesEscapedTextToUTF8) {
    const auto code = [](const char* text) {
        return decoded(valid.with("snapshot", "selectionCode", text)).snapshots[0].selectionCode;
    };
    EXPECT_EQ(code("\"caf\\u00e9 \\ud83d\\udcbe\\n\\\"\\\\\\/\""), "caf\xC3\xA9 \xF0\x9F\x92\xBE\n\"\\/");
    EXPECT_EQ(code("\"a\\u0000b\""), std::string("a\0b", 3));
    EXPECT_EQ(code("\"\xEF\xBF\xBF\xF4\x8F\xBF\xBF\""), "\xEF\xBF\xBF\xF4\x8F\xBF\xBF");
}

TEST(AmbrelRecoveryInspectionDocumentTest, ignoresUnknownKeysAtEveryLevel) {
    for (const char* const level : {"document", "branch", "snapshot", "counts", "evidence"}) {
        for (const char* const value : {"null", "-1.5e3", "\"text\"", "{\"snapshots\":1}", "[[{\"a\":[null]}]]",
                                        "18446744073709551616", "{\"a\":[1e400,-1E+999999999999999999999]}"}) {
            EXPECT_TRUE(decoded(valid.withFirst(level, "unknown", value)) == expected) << level << ": " << value;
            EXPECT_TRUE(decoded(valid.withLast(level, "", value)) == expected) << level << ": " << value;
            EXPECT_TRUE(decoded(valid.withFirst(level, "SNAPSHOTS", value)) == expected) << level << ": " << value;
        }
    }
}

TEST(AmbrelRecoveryInspectionDocumentTest, usesTheFirstOfTwoEqualKeysInAnyOrder) {
    for (const DocumentText& text : {valid, valid.reversed()}) {
        for (const DocumentField& field : DocumentField::inspection()) {
            const std::string name = std::string(field.level) + "." + std::string(field.key);
            EXPECT_TRUE(decoded(text.withLast(field.level, field.key, "{}")) == expected) << name;
            EXPECT_TRUE(isRefused(text.withFirst(field.level, field.key, "{}"))) << name;
        }
    }
}

TEST(AmbrelRecoveryInspectionDocumentTest, identifiesASnapshotByItsSelectionCode) {
    EXPECT_EQ(decoded(valid).snapshots[0].id(), "code-1");
}

TEST(AmbrelRecoveryInspectionDocumentTest, recommendsNothingForAForkOrWithoutAPublishedHead) {
    for (const char* const disposition : {"unresolved-fork", "no-published-head"}) {
        for (const char* const signs : {"", "+", "-", "+-", "++", "---"}) {
            EXPECT_EQ(withSnapshots(disposition, signs).recommendedSnapshotCode(), std::nullopt) << signs;
        }
    }
}

TEST(AmbrelRecoveryInspectionDocumentTest, recommendsTheOnlyRetainedTip) {
    for (const char* const disposition :
         {"single-head", "", "Unresolved-Fork", "unresolved-fork ", "no-published-heads", "resolved-fork"}) {
        EXPECT_EQ(withSnapshots(disposition, "+").recommendedSnapshotCode(), "0") << disposition;
        EXPECT_EQ(withSnapshots(disposition, "+--").recommendedSnapshotCode(), "0") << disposition;
        EXPECT_EQ(withSnapshots(disposition, "--+").recommendedSnapshotCode(), "2") << disposition;
    }
}

TEST(AmbrelRecoveryInspectionDocumentTest, recommendsTheOnlySnapshotWithoutARetainedTip) {
    EXPECT_EQ(withSnapshots("single-head", "-").recommendedSnapshotCode(), "0");
}

TEST(AmbrelRecoveryInspectionDocumentTest, recommendsNothingIfTheChoiceIsUnclear) {
    for (const char* const signs : {"", "++", "+-+", "--", "---"}) {
        EXPECT_EQ(withSnapshots("single-head", signs).recommendedSnapshotCode(), std::nullopt) << signs;
    }
}

TEST(AmbrelRecoveryInspectionDocumentTest, recommendsWithoutRegardToTheCanonicalTipAndTheBranches) {
    for (const auto& [signs, recommended] :
         {std::pair("--+", std::optional<std::string>("2")), {"---", std::nullopt}}) {
        const Document document = {
            .canonicalTipSelectionCode = "0",
            .preservedBranches = {{"1", {"1"}}},
            .snapshots = withSnapshots("", signs).snapshots,
        };
        EXPECT_EQ(document.recommendedSnapshotCode(), recommended);
    }
}
