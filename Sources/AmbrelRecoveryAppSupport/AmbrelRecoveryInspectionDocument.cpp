#include "AmbrelRecoveryAppSupport/AmbrelRecoveryInspectionDocument.h"

#include "AmbrelRecoveryAppSupport/DocumentObject.h"

#include <algorithm>

namespace {

using Document = AmbrelRecoveryInspectionDocument;

Document::Branch branch(DocumentObject object) {
    return {object.string("tipSelectionCode"), object.strings("snapshotSelectionCodes")};
}

Document::Counts counts(DocumentObject object) {
    return {
        .items = object.unsignedInteger("items"),
        .resources = object.unsignedInteger("resources"),
        .folders = object.unsignedInteger("folders"),
        .albums = object.unsignedInteger("albums"),
        .memberships = object.unsignedInteger("memberships"),
        .tombstones = object.unsignedInteger("tombstones"),
    };
}

Document::PayloadFileEvidence payloadFileEvidence(DocumentObject object) {
    return {
        .complete = object.boolean("complete"),
        .requiredFileCount = object.signedInteger("requiredFileCount"),
        .matchingFileCount = object.signedInteger("matchingFileCount"),
        .missingFileCount = object.signedInteger("missingFileCount"),
        .mismatchedFileCount = object.signedInteger("mismatchedFileCount"),
        .unreadableFileCount = object.signedInteger("unreadableFileCount"),
    };
}

Document::Snapshot snapshot(DocumentObject object) {
    return {
        .selectionCode = object.string("selectionCode"),
        .createdAtUTCMilliseconds = object.signedInteger("createdAtUTCMilliseconds"),
        .writerEpoch = object.unsignedInteger("writerEpoch"),
        .generation = object.unsignedInteger("generation"),
        .retainedTip = object.boolean("retainedTip"),
        .counts = counts(object.object("counts")),
        .logicalPlaintextByteCount = object.unsignedInteger("logicalPlaintextByteCount"),
        .encryptedPayloadByteCount = object.unsignedInteger("encryptedPayloadByteCount"),
        .payloadFileEvidence = payloadFileEvidence(object.object("payloadFileEvidence")),
    };
}

} // namespace

AmbrelRecoveryInspectionDocument AmbrelRecoveryInspectionDocument::decode(std::string_view json) {
    return DocumentObject::parse(json, [](DocumentObject object) {
        return Document{
            .schemaIdentifier = object.string("schemaIdentifier"),
            .formatIdentifier = object.string("formatIdentifier"),
            .formatVersion = object.unsignedInteger("formatVersion"),
            .unlockedFactor = object.string("unlockedFactor"),
            .branchDisposition = object.string("branchDisposition"),
            .canonicalTipSelectionCode = object.optionalString("canonicalTipSelectionCode"),
            .authenticatedCommitCount = object.signedInteger("authenticatedCommitCount"),
            .authenticatedHeadCount = object.signedInteger("authenticatedHeadCount"),
            .maximumWriterEpoch = object.unsignedInteger("maximumWriterEpoch"),
            .preservedBranches = object.objects("preservedBranches", branch),
            .snapshots = object.objects("snapshots", snapshot),
        };
    });
}

std::optional<std::string> AmbrelRecoveryInspectionDocument::recommendedSnapshotCode() const {
    if (branchDisposition == unresolvedFork || branchDisposition == noPublishedHead) {
        return std::nullopt;
    }
    if (std::ranges::count_if(snapshots, &Snapshot::retainedTip) == 1) {
        return std::ranges::find_if(snapshots, &Snapshot::retainedTip)->selectionCode;
    }
    return snapshots.size() == 1 ? std::optional(snapshots.front().selectionCode) : std::nullopt;
}
