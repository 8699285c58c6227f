#include "SampleDocument.h"

namespace {

std::string field(const char* key, long long value) {
    return "\"" + std::string(key) + "\":" + std::to_string(value);
}

std::string snapshot(int number) {
    constexpr long long firstMilliseconds = 1'000'000'000'000;
    constexpr long long quarterOfAnHour = 900'000;
    constexpr int firstCode = 0x10'0000;
    const long long files = 9'000 + 2LL * number;
    // As long as the stand-in's codes.
    return R"({"selectionCode":"c0de0)" + std::to_string(firstCode + number) + "\"," +
           field("createdAtUTCMilliseconds", firstMilliseconds + number * quarterOfAnHour) + "," +
           field("writerEpoch", 3) + "," + field("generation", number) + R"(,"retainedTip":false,"counts":{)" +
           field("items", 4'000 + number) + "," + field("resources", files) + "," + field("folders", 12) + "," +
           field("albums", 48) + "," + field("memberships", 7'000 + number) + "," + field("tombstones", 21) + "}," +
           field("logicalPlaintextByteCount", 18'400'000'000 + number * 3'000'000LL) + "," +
           field("encryptedPayloadByteCount", 18'405'000'000 + number * 3'000'000LL) +
           R"(,"payloadFileEvidence":{"complete":true,)" + field("requiredFileCount", files) + "," +
           field("matchingFileCount", files) + "," + field("missingFileCount", 0) + "," +
           field("mismatchedFileCount", 0) + "," + field("unreadableFileCount", 0) + "}}";
}

} // namespace

std::string SampleDocument::inspection(int count) {
    std::string text = R"({"schemaIdentifier":"com.ambrel.recovery.cli-inspection.v1",)"
                       R"("formatIdentifier":"com.ambrel.backup.v1","formatVersion":1,"unlockedFactor":"recovery-key",)"
                       R"("branchDisposition":"single-head","canonicalTipSelectionCode":null,)" +
                       field("authenticatedCommitCount", count) +
                       R"(,"authenticatedHeadCount":1,"maximumWriterEpoch":3,"preservedBranches":[],"snapshots":[)";
    for (int number = 0; number < count; ++number) {
        text += (number == 0 ? "" : ",") + snapshot(number);
    }
    return text + "]}\n";
}
