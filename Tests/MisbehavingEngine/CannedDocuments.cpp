#include "CannedDocuments.h"

#include <algorithm>
#include <cstddef>

namespace {

/// The last second of the year 2024, from which the snapshots go back a day each.
constexpr long newestMilliseconds = 1735689599000;
constexpr long dayInMilliseconds = 86400000;

std::string jsonText(std::string_view text) {
    std::string literal = "\"";
    for (const char character : text) {
        if (character == '"' || character == '\\') {
            literal += '\\';
        }
        literal += character;
    }
    return literal + "\"";
}

std::string member(std::string_view key, long value) {
    return jsonText(key) + ":" + std::to_string(value);
}

std::string member(std::string_view key, std::string_view value) {
    return jsonText(key) + ":" + jsonText(value);
}

std::string code(long index) {
    std::string digits = std::to_string(index + 1);
    digits.insert(0, static_cast<std::size_t>(std::max(0L, 6L - static_cast<long>(digits.size()))), '0');
    return "snapshot-" + digits;
}

std::string counts(long generation) {
    return "\"counts\":{" + member("items", generation * 100 + 34) + "," + member("resources", generation * 120) +
           ",\"folders\":2,\"albums\":5,\"memberships\":77,\"tombstones\":3}";
}

/// Every third snapshot lacks a payload file.
std::string evidence(long index) {
    const long missing = index % 3 == 2 ? 1 : 0;
    return std::string("\"payloadFileEvidence\":{\"complete\":") + (missing == 0 ? "true" : "false") +
           ",\"requiredFileCount\":9," + member("matchingFileCount", 9 - missing) + "," +
           member("missingFileCount", missing) + ",\"mismatchedFileCount\":0,\"unreadableFileCount\":0}";
}

/// Snapshots are numbered from the newest one.
std::string snapshot(const CannedDocuments::Inspection& inspection, long index) {
    const long generation = inspection.snapshotCount - index;
    return "{" + member("selectionCode", code(index)) + "," +
           member("createdAtUTCMilliseconds", newestMilliseconds - index * dayInMilliseconds) + "," +
           member("writerEpoch", 1) + "," + member("generation", generation) +
           ",\"retainedTip\":" + (index < inspection.retainedTipCount ? "true" : "false") + "," + counts(generation) +
           "," + member("logicalPlaintextByteCount", generation * 1234567) + "," +
           member("encryptedPayloadByteCount", generation * 1234999) + "," + evidence(index) + "}";
}

std::string branch(long index) {
    return "{" + member("tipSelectionCode", code(index)) + ",\"snapshotSelectionCodes\":[" + jsonText(code(index)) +
           "]}";
}

template<typename Element>
std::string list(long count, const Element& element) {
    std::string text = "[";
    for (long index = 0; index < count; ++index) {
        text += index == 0 ? "" : ",";
        text += element(index);
    }
    return text + "]";
}

} // namespace

std::string CannedDocuments::text(const Inspection& inspection) {
    const bool forked = inspection.branchDisposition == "unresolved-fork";
    const bool hasTip = !forked && inspection.snapshotCount > 0;
    return "{" + member("schemaIdentifier", inspection.schemaIdentifier) + "," +
           member("formatIdentifier", inspection.formatIdentifier) + "," + member("formatVersion", 1) + "," +
           member("unlockedFactor", inspection.unlockedFactor) + "," +
           member("branchDisposition", inspection.branchDisposition) +
           ",\"canonicalTipSelectionCode\":" + (hasTip ? jsonText(code(0)) : "null") + "," +
           member("authenticatedCommitCount", inspection.snapshotCount) + "," +
           member("authenticatedHeadCount", inspection.retainedTipCount) + "," + member("maximumWriterEpoch", 1) +
           ",\"preservedBranches\":" + list(forked ? inspection.retainedTipCount : 0, branch) + ",\"snapshots\":" +
           list(inspection.snapshotCount, [&inspection](long index) { return snapshot(inspection, index); }) + "}\n";
}

std::string CannedDocuments::text(const Export& exported) {
    return "{" + member("schemaIdentifier", exported.schemaIdentifier) + "," + member("status", "complete") + "," +
           member("selectedSnapshotCode", exported.snapshotCode) +
           ",\"totalItemCount\":1234,\"recoveredItemCount\":1234,\"totalResourceCount\":1234," +
           "\"recoveredResourceCount\":1234,\"failedResourceCount\":0}\n";
}
