#include "AmbrelRecoveryApp/Model/RecoveryEngineRun.h"

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryPackagePreparation.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"
#include "AmbrelRecoveryAppSupport/CancellationError.h"

#include <gtest/gtest.h>

#include <cctype>
#include <new>
#include <string>
#include <system_error>
#include <vector>

namespace {

using Kind = AmbrelRecoveryFailureKind;
constexpr auto passphrase = AmbrelRecoveryAppFactor::backupPassphrase;
constexpr auto recoveryKey = AmbrelRecoveryAppFactor::recoveryKey;

template<typename Error>
Kind kindOf(const Error& error) {
    return RecoveryEngineRun::failureKind(std::make_exception_ptr(error));
}

const std::string inspectionSchema = "com.ambrel.recovery.cli-inspection.v1";
const std::string exportSchema = "com.ambrel.recovery.cli-export.v1";
const std::string backupFormat = "com.ambrel.backup.v1";

/// Whether a successful run with an inspection that has these identifiers, and no other fault, is accepted.
bool isInspectionAccepted(const std::string& schema, const std::string& format) {
    const std::string document =
        R"({"schemaIdentifier":")" + schema + R"(","formatIdentifier":")" + format +
        R"(","formatVersion":1,"unlockedFactor":"","branchDisposition":"","authenticatedCommitCount":0,)"
        R"("authenticatedHeadCount":0,"maximumWriterEpoch":0,"preservedBranches":[],"snapshots":[]})";
    const auto outcome = RecoveryEngineRun::outcome<AmbrelRecoveryInspectionDocument>({0, document, ""}, passphrase);
    return !std::holds_alternative<Kind>(outcome);
}

std::string exportDocument(const std::string& schema) {
    return R"({"schemaIdentifier":")" + schema +
           R"(","status":"","selectedSnapshotCode":"","totalItemCount":0,"recoveredItemCount":0,)"
           R"("totalResourceCount":9,"recoveredResourceCount":0,"failedResourceCount":9})";
}

bool isExportAccepted(const std::string& schema) {
    const auto outcome =
        RecoveryEngineRun::outcome<AmbrelRecoveryExportDocument>({0, exportDocument(schema), ""}, passphrase);
    return !std::holds_alternative<Kind>(outcome);
}

/// Identifiers, as a document spells them, that are almost this one.
std::vector<std::string> almost(const std::string& identifier) {
    std::string upperCase = identifier;
    for (char& character : upperCase) {
        character = static_cast<char>(std::toupper(character));
    }
    std::string oneUpperCase = identifier;
    oneUpperCase.front() = 'C';
    const std::string shorter = identifier.substr(0, identifier.size() - 1);
    return {upperCase,
            oneUpperCase,
            identifier + " ",
            " " + identifier,
            identifier + "0",
            identifier + ".",
            shorter,
            shorter + "2",
            identifier + "\\u0000",
            identifier + "\\n",
            "x" + identifier,
            identifier.substr(1),
            "",
            identifier + identifier};
}

} // namespace

TEST(RecoveryEngineRunTest, mapsEveryThrownErrorToAFailure) {
    EXPECT_EQ(kindOf(CancellationError()), Kind::cancelled);
    EXPECT_EQ(kindOf(AmbrelRecoveryPackagePreparationError::downloadFailed), Kind::packageUnavailable);
    EXPECT_EQ(kindOf(AmbrelRecoveryProcessError::timedOut), Kind::packageUnavailable);
    EXPECT_EQ(kindOf(AmbrelRecoveryProcessError::executableUnavailable), Kind::generic);
    EXPECT_EQ(kindOf(AmbrelRecoveryProcessError::operationAlreadyRunning), Kind::generic);
    EXPECT_EQ(kindOf(AmbrelRecoveryProcessError::temporaryOutputUnavailable), Kind::generic);
    EXPECT_EQ(kindOf(AmbrelRecoveryProcessError::launchFailed), Kind::generic);
    EXPECT_EQ(kindOf(std::system_error(std::make_error_code(std::errc::io_error))), Kind::generic);
    EXPECT_EQ(kindOf(std::bad_alloc()), Kind::generic);
}

TEST(RecoveryEngineRunTest, classifiesADocumentThatIsNotAccepted) {
    const auto outcome =
        RecoveryEngineRun::outcome<AmbrelRecoveryInspectionDocument>({0, "{}", "package is unavailable"}, passphrase);
    EXPECT_EQ(std::get<Kind>(outcome), Kind::packageUnavailable);
    EXPECT_EQ(std::get<Kind>(
                  RecoveryEngineRun::outcome<AmbrelRecoveryExportDocument>({0, "", "did not unlock"}, recoveryKey)),
              Kind::wrongRecoveryKey);
}

TEST(RecoveryEngineRunTest, acceptsAnExportOfAnyStatusUnlessTheEngineFailed) {
    const std::string document = exportDocument(exportSchema);
    const auto accepted = RecoveryEngineRun::outcome<AmbrelRecoveryExportDocument>(
        {0, document, "integrity verification failed"}, passphrase);
    EXPECT_EQ(std::get<0>(accepted)->failedResourceCount, 9);
    const auto refused = RecoveryEngineRun::outcome<AmbrelRecoveryExportDocument>({1, document, ""}, passphrase);
    EXPECT_EQ(std::get<Kind>(refused), Kind::generic);
}

TEST(RecoveryEngineRunTest, refusesADocumentWithTheIdentifierOfTheOtherKind) {
    ASSERT_TRUE(isExportAccepted(exportSchema));
    EXPECT_FALSE(isExportAccepted(inspectionSchema));
    EXPECT_FALSE(isExportAccepted(backupFormat));
    ASSERT_TRUE(isInspectionAccepted(inspectionSchema, backupFormat));
    EXPECT_FALSE(isInspectionAccepted(exportSchema, backupFormat));
    EXPECT_FALSE(isInspectionAccepted(backupFormat, inspectionSchema));
}

TEST(RecoveryEngineRunTest, comparesTheIdentifiersExactly) {
    for (const std::string& other : almost(inspectionSchema)) {
        EXPECT_FALSE(isInspectionAccepted(other, backupFormat)) << other;
    }
    for (const std::string& other : almost(backupFormat)) {
        EXPECT_FALSE(isInspectionAccepted(inspectionSchema, other)) << other;
    }
    for (const std::string& other : almost(exportSchema)) {
        EXPECT_FALSE(isExportAccepted(other)) << other;
    }
}
