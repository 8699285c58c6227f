#include "AmbrelRecoveryAppSupport/AmbrelRecoveryExportDocument.h"

#include "AmbrelRecoveryAppSupport/DocumentDecodingError.h"
#include "DocumentField.h"
#include "DocumentText.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>

namespace {

using Document = AmbrelRecoveryExportDocument;

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

const DocumentText valid = DocumentText::exported();

const Document expected = {
    .schemaIdentifier = "com.ambrel.recovery.cli-export.v1",
    .status = "complete",
    .selectedSnapshotCode = "code-1",
    .totalItemCount = 1,
    .recoveredItemCount = 2,
    .totalResourceCount = 3,
    .recoveredResourceCount = 4,
    .failedResourceCount = 5,
};

static_assert(!std::is_assignable_v<Document&, Document>, "a report never changes");

} // namespace

TEST(AmbrelRecoveryExportDocumentTest, decodesEveryKey) {
    EXPECT_TRUE(decoded(valid) == expected);
}

TEST(AmbrelRecoveryExportDocumentTest, expectsItsSchemaIdentifier) {
    EXPECT_EQ(Document::expectedSchemaIdentifier, "com.ambrel.recovery.cli-export.v1");
}

TEST(AmbrelRecoveryExportDocumentTest, leavesTheComparisonOfTheSchemaIdentifierToTheConsumer) {
    const Document other =
        decoded(valid.with("document", "schemaIdentifier", "\"com.ambrel.recovery.cli-inspection.v1\""));
    EXPECT_EQ(other.schemaIdentifier, "com.ambrel.recovery.cli-inspection.v1");
    EXPECT_NE(other.schemaIdentifier, Document::expectedSchemaIdentifier);
}

TEST(AmbrelRecoveryExportDocumentTest, refusesADocumentWithoutOneOfItsKeys) {
    for (const DocumentField& field : DocumentField::exported()) {
        EXPECT_TRUE(isRefused(valid.without(field.level, field.key))) << field.key;
    }
}

TEST(AmbrelRecoveryExportDocumentTest, refusesEveryUnsuitableValue) {
    for (const DocumentField& field : DocumentField::exported()) {
        for (const std::string& value : field.refusedValues()) {
            EXPECT_TRUE(isRefused(valid.with(field.level, field.key, value))) << field.key << ": " << value;
        }
    }
}

TEST(AmbrelRecoveryExportDocumentTest, acceptsEverySuitableValue) {
    for (const DocumentField& field : DocumentField::exported()) {
        for (const std::string& value : field.acceptedValues()) {
            EXPECT_FALSE(isRefused(valid.with(field.level, field.key, value))) << field.key << ": " << value;
        }
    }
}

TEST(AmbrelRecoveryExportDocumentTest, keepsTheFullRangeOfItsNumbers) {
    EXPECT_EQ(decoded(valid.with("document", "totalItemCount", "9223372036854775807")).totalItemCount, INT64_MAX);
    EXPECT_EQ(decoded(valid.with("document", "recoveredItemCount", "-9223372036854775808")).recoveredItemCount,
              INT64_MIN);
    // Doubles could not tell these two apart.
    EXPECT_EQ(decoded(valid.with("document", "totalResourceCount", "9007199254740993")).totalResourceCount,
              9007199254740993);
    EXPECT_EQ(decoded(valid.with("document", "failedResourceCount", "-9007199254740993")).failedResourceCount,
              -9007199254740993);
}

TEST(AmbrelRecoveryExportDocumentTest, acceptsWhateverTheEngineReports) {
    EXPECT_EQ(decoded(valid.with("document", "status", "\"\"")).status, "");
    EXPECT_EQ(decoded(valid.with("document", "status", "\"no such word\"")).status, "no such word");
    EXPECT_EQ(decoded(valid.with("document", "failedResourceCount", "7")).failedResourceCount, 7);
    EXPECT_EQ(decoded(valid.with("document", "recoveredItemCount", "0")).recoveredItemCount, 0);
    EXPECT_EQ(decoded(valid.with("document", "selectedSnapshotCode", "\"another\"")).selectedSnapshotCode, "another");
}

TEST(AmbrelRecoveryExportDocumentTest, ignoresUnknownKeys) {
    for (const char* const value : {"null", "1", "-1.5e3", "\"text\"", "[]", "{\"status\":1}", "[[{\"a\":[null]}]]",
                                    "18446744073709551616", "{\"a\":[1e400,-1E+999999999999999999999]}"}) {
        EXPECT_TRUE(decoded(valid.withFirst("document", "unknown", value)) == expected) << value;
        EXPECT_TRUE(decoded(valid.withLast("document", "Status", value)) == expected) << value;
    }
}

TEST(AmbrelRecoveryExportDocumentTest, ignoresTheOrderOfTheKeysAndTheBlanksBetweenThem) {
    DocumentText text = valid;
    for (const DocumentField& field : DocumentField::exported()) {
        const std::string key(field.key);
        const std::string whole = valid.text();
        const std::size_t start = whole.find("\"" + key + "\":") + key.size() + 3;
        const std::string value = whole.substr(start, whole.find_first_of(",}", start) - start);
        text = text.without("document", key).withFirst("document", key, " \t\r\n" + value + "\n ");
    }
    EXPECT_TRUE(Document::decode("\n\t " + text.text() + " \r\n") == expected);
}
