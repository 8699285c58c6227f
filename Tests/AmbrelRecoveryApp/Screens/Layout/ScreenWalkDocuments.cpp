#include "ScreenWalkDocuments.h"

#include <cstdint>
#include <initializer_list>

namespace {

struct Snapshot {
    const char* code;
    std::int64_t createdAtUTCMilliseconds;
    int items;
    int files;
    std::int64_t byteCount;
    bool isComplete = true;
    bool isRetainedTip = false;
};

std::string documentOf(const Snapshot& snapshot) {
    const std::string files = std::to_string(snapshot.files);
    const std::string matching = std::to_string(snapshot.isComplete ? snapshot.files : snapshot.files - 1);
    return R"({"selectionCode":")" + std::string(snapshot.code) + R"(","createdAtUTCMilliseconds":)" +
           std::to_string(snapshot.createdAtUTCMilliseconds) + R"(,"writerEpoch":1,"generation":1,"retainedTip":)" +
           (snapshot.isRetainedTip ? "true" : "false") + R"(,"counts":{"items":)" + std::to_string(snapshot.items) +
           R"(,"resources":)" + files + R"(,"folders":0,"albums":0,"memberships":0,"tombstones":0},)" +
           R"("logicalPlaintextByteCount":)" + std::to_string(snapshot.byteCount) + R"(,"encryptedPayloadByteCount":)" +
           std::to_string(snapshot.byteCount) + R"(,"payloadFileEvidence":{"complete":)" +
           (snapshot.isComplete ? "true" : "false") + R"(,"requiredFileCount":)" + files + R"(,"matchingFileCount":)" +
           matching + R"(,"missingFileCount":)" + (snapshot.isComplete ? "0" : "1") +
           R"(,"mismatchedFileCount":0,"unreadableFileCount":0}})";
}

std::string documentOf(const char* disposition, std::initializer_list<Snapshot> snapshots) {
    std::string list;
    for (const Snapshot& snapshot : snapshots) {
        list += (list.empty() ? "" : ",") + documentOf(snapshot);
    }
    return R"({"schemaIdentifier":"com.ambrel.recovery.cli-inspection.v1","formatIdentifier":"com.ambrel.backup.v1",)"
           R"("formatVersion":1,"unlockedFactor":"backup-passphrase","branchDisposition":")" +
           std::string(disposition) +
           R"(","authenticatedCommitCount":3,"authenticatedHeadCount":1,"maximumWriterEpoch":1,"preservedBranches":[],)"
           R"("snapshots":[)" +
           list + "]}";
}

constexpr std::int64_t megabyte = 1'000'000;

// June 14, May 30 and May 2, 2026.
constexpr Snapshot newest = {"newest", 1'781'430'060'000, 4812, 9630, 18'400 * megabyte, true, true};
constexpr Snapshot middle = {"middle", 1'780'171'320'000, 4760, 9511, 17'900 * megabyte};
constexpr Snapshot oldest = {"oldest", 1'777'706'100'000, 4455, 8912, 16'200 * megabyte, false};

} // namespace

std::string ScreenWalkDocuments::inspection() {
    return documentOf("single-branch", {newest, middle, oldest});
}

std::string ScreenWalkDocuments::forkedInspection() {
    return documentOf("unresolved-fork", {newest, middle, oldest});
}

std::string ScreenWalkDocuments::largeInspection() {
    // Between Christmas and New Year, with two digits for the day and for the hour.
    return documentOf("single-branch",
                      {{"short", 1'798'585'140'000, 3, 4, megabyte, false, true},
                       {"long", 1'798'498'740'000, 2'888'888, 5'888'888, 8'888'888 * megabyte, false}});
}

std::string ScreenWalkDocuments::emptyInspection() {
    return documentOf("no-published-head", {});
}

std::string ScreenWalkDocuments::exportReport() {
    return R"({"schemaIdentifier":"com.ambrel.recovery.cli-export.v1","status":"complete",)"
           R"("selectedSnapshotCode":"newest","totalItemCount":4812,"recoveredItemCount":4812,)"
           R"("totalResourceCount":9630,"recoveredResourceCount":9630,"failedResourceCount":0})";
}
