#include "Engine/InspectionDocument.h"

#include "Engine/JsonWriter.h"

namespace {

const char* wordFor(BranchDisposition disposition) {
    switch (disposition) {
    case BranchDisposition::singleBranch:
        return "single-branch";
    case BranchDisposition::canonicalBranch:
        return "canonical-branch";
    case BranchDisposition::unresolvedFork:
        return "unresolved-fork";
    case BranchDisposition::noPublishedHead:
        break;
    }
    return "no-published-head";
}

void append(JsonWriter& json, const Inspection::Branch& branch) {
    json.beginObject();
    json.member("tipSelectionCode", branch.tipSelectionCode);
    json.key("snapshotSelectionCodes");
    json.beginArray();
    for (const std::string& code : branch.snapshotSelectionCodes) {
        json.value(code);
    }
    json.endArray();
    json.endObject();
}

void append(JsonWriter& json, const Inspection::Counts& counts) {
    json.beginObject();
    json.member("items", counts.items);
    json.member("resources", counts.resources);
    json.member("folders", counts.folders);
    json.member("albums", counts.albums);
    json.member("memberships", counts.memberships);
    json.member("tombstones", counts.tombstones);
    json.endObject();
}

void append(JsonWriter& json, const Inspection::PayloadFileEvidence& evidence) {
    json.beginObject();
    json.member("complete", evidence.matching == evidence.required);
    json.member("requiredFileCount", evidence.required);
    json.member("matchingFileCount", evidence.matching);
    json.member("missingFileCount", evidence.missing);
    json.member("mismatchedFileCount", evidence.mismatched);
    json.member("unreadableFileCount", evidence.unreadable);
    json.endObject();
}

void append(JsonWriter& json, const Inspection::Snapshot& snapshot) {
    json.beginObject();
    json.member("selectionCode", snapshot.selectionCode);
    json.member("createdAtUTCMilliseconds", snapshot.createdAtMilliseconds);
    json.member("writerEpoch", snapshot.writerEpoch);
    json.member("generation", snapshot.generation);
    json.member("retainedTip", snapshot.isRetainedTip);
    json.key("counts");
    append(json, snapshot.counts);
    json.member("logicalPlaintextByteCount", snapshot.logicalPlaintextByteCount);
    json.member("encryptedPayloadByteCount", snapshot.encryptedPayloadByteCount);
    json.key("payloadFileEvidence");
    append(json, snapshot.evidence);
    json.endObject();
}

} // namespace

std::string InspectionDocument::write(const Inspection& inspection) {
    JsonWriter json;
    json.beginObject();
    json.member("schemaIdentifier", "com.ambrel.recovery.cli-inspection.v1");
    json.member("formatIdentifier", "com.ambrel.backup.v1");
    json.member("formatVersion", inspection.formatVersion);
    json.member("unlockedFactor",
                inspection.unlockedFactor == Factor::recoveryKey ? "recovery-key" : "backup-passphrase");
    json.member("branchDisposition", wordFor(inspection.disposition));
    json.key("canonicalTipSelectionCode");
    if (inspection.canonicalTipSelectionCode) {
        json.value(*inspection.canonicalTipSelectionCode);
    } else {
        json.null();
    }
    json.member("authenticatedCommitCount", inspection.commitCount);
    json.member("authenticatedHeadCount", inspection.headCount);
    json.member("maximumWriterEpoch", inspection.maximumWriterEpoch);
    json.key("preservedBranches");
    json.beginArray();
    for (const Inspection::Branch& branch : inspection.preservedBranches) {
        append(json, branch);
    }
    json.endArray();
    json.key("snapshots");
    json.beginArray();
    for (const Inspection::Snapshot& snapshot : inspection.snapshots) {
        append(json, snapshot);
    }
    json.endArray();
    json.endObject();
    return json.text() + "\n";
}
