#include "AmbrelRecoveryAppSupport/AmbrelRecoveryInspectionDocument.h"
#include "AmbrelRecoveryAppSupport/DocumentDecodingError.h"
#include "DocumentField.h"
#include "DocumentText.h"

#include <gtest/gtest.h>

#include <algorithm>

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
    Document document;
    document.branchDisposition = disposition;
    for (std::size_t index = 0; index < signs.size(); ++index) {
        Document::Snapshot snapshot;
        snapshot.selectionCode = std::to_string(index);
        snapshot.retainedTip = signs[index] == '+';
        document.snapshots.push_back(snapshot);
    }
    return document;
}

} // namespace

TEST(AmbrelRecoveryInspectionDocumentTest, DecodesEveryKey) {
    EXPECT_TRUE(decoded(valid) == expected);
}

TEST(AmbrelRecoveryInspectionDocumentTest, KeepsTheOrderOfTheEngine) {
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

TEST(AmbrelRecoveryInspectionDocumentTest, ExpectsItsIdentifiers) {
    EXPECT_EQ(Document::expectedSchemaIdentifier, "com.ambrel.recovery.cli-inspection.v1");
    EXPECT_EQ(Document::expectedFormatIdentifier, "com.ambrel.backup.v1");
}

TEST(AmbrelRecoveryInspectionDocumentTest, LeavesTheComparisonOfTheIdentifiersToTheConsumer) {
    const Document other = decoded(valid.with("document", "schemaIdentifier", "\"com.ambrel.recovery.cli-export.v1\"")
                                       .with("document", "formatIdentifier", "\"com.ambrel.backup.v2\""));
    EXPECT_NE(other.schemaIdentifier, Document::expectedSchemaIdentifier);
    EXPECT_NE(other.formatIdentifier, Document::expectedFormatIdentifier);
}

TEST(AmbrelRecoveryInspectionDocumentTest, RefusesADocumentWithoutOneOfItsKeys) {
    for (const DocumentField& field : DocumentField::inspection()) {
        EXPECT_EQ(isRefused(valid.without(field.level, field.key)), field.kind != DocumentField::Kind::optionalText)
            << field.level << "." << field.key;
    }
}

TEST(AmbrelRecoveryInspectionDocumentTest, RefusesEveryUnsuitableValue) {
    for (const DocumentField& field : DocumentField::inspection()) {
        for (const std::string& value : field.refusedValues()) {
            EXPECT_TRUE(isRefused(valid.with(field.level, field.key, value)))
                << field.level << "." << field.key << ": " << value;
        }
    }
}

TEST(AmbrelRecoveryInspectionDocumentTest, AcceptsEverySuitableValue) {
    for (const DocumentField& field : DocumentField::inspection()) {
        for (const std::string& value : field.acceptedValues()) {
            EXPECT_FALSE(isRefused(valid.with(field.level, field.key, value)))
                << field.level << "." << field.key << ": " << value;
        }
    }
}

TEST(AmbrelRecoveryInspectionDocumentTest, RefusesTheWholeDocumentForOneBadElement) {
    EXPECT_TRUE(isRefused(valid.with("document", "snapshots", "[@snapshot, null]")));
    EXPECT_TRUE(isRefused(valid.with("document", "snapshots", "[@snapshot, {}]")));
    EXPECT_TRUE(isRefused(valid.with("document", "preservedBranches", "[@branch, \"code-1\"]")));
}

TEST(AmbrelRecoveryInspectionDocumentTest, TakesACanonicalTipThatIsAbsentNullOrThere) {
    EXPECT_EQ(decoded(valid).canonicalTipSelectionCode, "code-1");
    EXPECT_EQ(decoded(valid.without("document", "canonicalTipSelectionCode")).canonicalTipSelectionCode, std::nullopt);
    EXPECT_EQ(decoded(valid.with("document", "canonicalTipSelectionCode", "null")).canonicalTipSelectionCode,
              std::nullopt);
    EXPECT_EQ(decoded(valid.with("document", "canonicalTipSelectionCode", "\"\"")).canonicalTipSelectionCode, "");
}

TEST(AmbrelRecoveryInspectionDocumentTest, KeepsTheWholeWidthOfItsNumbers) {
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

TEST(AmbrelRecoveryInspectionDocumentTest, TakesWhateverTheEngineReports) {
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

TEST(AmbrelRecoveryInspectionDocumentTest, DecodesEscapedTextToUTF8) {
    const auto code = [](const char* text) {
        return decoded(valid.with("snapshot", "selectionCode", text)).snapshots[0].selectionCode;
    };
    EXPECT_EQ(code("\"caf\\u00e9 \\ud83d\\udcbe\\n\\\"\\\\\\/\""), "caf\xC3\xA9 \xF0\x9F\x92\xBE\n\"\\/");
    EXPECT_EQ(code("\"a\\u0000b\""), std::string("a\0b", 3));
    EXPECT_EQ(code("\"\xEF\xBF\xBF\xF4\x8F\xBF\xBF\""), "\xEF\xBF\xBF\xF4\x8F\xBF\xBF");
}

TEST(AmbrelRecoveryInspectionDocumentTest, IgnoresUnknownKeysAtEveryLevel) {
    for (const char* const level : {"document", "branch", "snapshot", "counts", "evidence"}) {
        for (const char* const value : {"null", "-1.5e3", "\"text\"", "{\"snapshots\":1}", "[[{\"a\":[null]}]]"}) {
            EXPECT_TRUE(decoded(valid.withFirst(level, "unknown", value)) == expected) << level << ": " << value;
            EXPECT_TRUE(decoded(valid.withLast(level, "", value)) == expected) << level << ": " << value;
            EXPECT_TRUE(decoded(valid.withFirst(level, "SNAPSHOTS", value)) == expected) << level << ": " << value;
        }
    }
}

TEST(AmbrelRecoveryInspectionDocumentTest, NamesASnapshotByItsSelectionCode) {
    EXPECT_EQ(decoded(valid).snapshots[0].id(), "code-1");
}

TEST(AmbrelRecoveryInspectionDocumentTest, RecommendsNothingForAForkOrWithoutAPublishedHead) {
    for (const char* const disposition : {"unresolved-fork", "no-published-head"}) {
        for (const char* const signs : {"", "+", "-", "+-", "++", "---"}) {
            EXPECT_EQ(withSnapshots(disposition, signs).recommendedSnapshotCode(), std::nullopt) << signs;
        }
    }
}

TEST(AmbrelRecoveryInspectionDocumentTest, RecommendsTheOnlyRetainedTip) {
    for (const char* const disposition :
         {"single-head", "", "Unresolved-Fork", "unresolved-fork ", "no-published-heads", "resolved-fork"}) {
        EXPECT_EQ(withSnapshots(disposition, "+").recommendedSnapshotCode(), "0") << disposition;
        EXPECT_EQ(withSnapshots(disposition, "+--").recommendedSnapshotCode(), "0") << disposition;
        EXPECT_EQ(withSnapshots(disposition, "--+").recommendedSnapshotCode(), "2") << disposition;
    }
}

TEST(AmbrelRecoveryInspectionDocumentTest, RecommendsTheOnlySnapshotWithoutARetainedTip) {
    EXPECT_EQ(withSnapshots("single-head", "-").recommendedSnapshotCode(), "0");
}

TEST(AmbrelRecoveryInspectionDocumentTest, RecommendsNothingWhereTheChoiceIsNotClear) {
    for (const char* const signs : {"", "++", "+-+", "--", "---"}) {
        EXPECT_EQ(withSnapshots("single-head", signs).recommendedSnapshotCode(), std::nullopt) << signs;
    }
}

TEST(AmbrelRecoveryInspectionDocumentTest, RecommendsWithoutRegardToTheCanonicalTipAndTheBranches) {
    Document document = withSnapshots("single-head", "--+");
    document.canonicalTipSelectionCode = "0";
    document.preservedBranches = {{"1", {"1"}}};
    EXPECT_EQ(document.recommendedSnapshotCode(), "2");
    document.snapshots[2].retainedTip = false;
    EXPECT_EQ(document.recommendedSnapshotCode(), std::nullopt);
}

TEST(AmbrelRecoveryInspectionDocumentTest, RecommendsAnewAtEveryCall) {
    Document document = withSnapshots("single-head", "+-");
    EXPECT_EQ(document.recommendedSnapshotCode(), "0");
    document.branchDisposition = Document::unresolvedFork;
    EXPECT_EQ(document.recommendedSnapshotCode(), std::nullopt);
}
