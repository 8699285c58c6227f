#include "AmbrelRecoveryAppSupport/AmbrelRecoveryInspectionDocument.h"

#include "AmbrelRecoveryAppSupport/DocumentObject.h"

#include <algorithm>

namespace {

using Document = AmbrelRecoveryInspectionDocument;

Document::Branch branch(const DocumentObject& object) {
    return {object.string("tipSelectionCode"), object.strings("snapshotSelectionCodes")};
}

Document::Counts counts(const DocumentObject& object) {
    return {
        .items = object.unsignedInteger("items"),
        .resources = object.unsignedInteger("resources"),
        .folders = object.unsignedInteger("folders"),
        .albums = object.unsignedInteger("albums"),
        .memberships = object.unsignedInteger("memberships"),
        .tombstones = object.unsignedInteger("tombstones"),
    };
}

Document::PayloadFileEvidence payloadFileEvidence(const DocumentObject& object) {
    return {
        .complete = object.boolean("complete"),
        .requiredFileCount = object.signedInteger("requiredFileCount"),
        .matchingFileCount = object.signedInteger("matchingFileCount"),
        .missingFileCount = object.signedInteger("missingFileCount"),
        .mismatchedFileCount = object.signedInteger("mismatchedFileCount"),
        .unreadableFileCount = object.signedInteger("unreadableFileCount"),
    };
}

Document::Snapshot snapshot(const DocumentObject& object) {
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
    Document document;
    DocumentObject::parse(json, [&document](const DocumentObject& object) {
        document.schemaIdentifier = object.string("schemaIdentifier");
        document.formatIdentifier = object.string("formatIdentifier");
        document.formatVersion = object.unsignedInteger("formatVersion");
        document.unlockedFactor = object.string("unlockedFactor");
        document.branchDisposition = object.string("branchDisposition");
        document.canonicalTipSelectionCode = object.optionalString("canonicalTipSelectionCode");
        document.authenticatedCommitCount = object.signedInteger("authenticatedCommitCount");
        document.authenticatedHeadCount = object.signedInteger("authenticatedHeadCount");
        document.maximumWriterEpoch = object.unsignedInteger("maximumWriterEpoch");
        std::ranges::transform(object.objects("preservedBranches"), std::back_inserter(document.preservedBranches),
                               branch);
        std::ranges::transform(object.objects("snapshots"), std::back_inserter(document.snapshots), snapshot);
    });
    return document;
}

std::optional<std::string> AmbrelRecoveryInspectionDocument::recommendedSnapshotCode() const {
    if (branchDisposition == unresolvedFork || branchDisposition == noPublishedHead) {
        return std::nullopt;
    }
    const auto firstTip = std::ranges::find_if(snapshots, &Snapshot::retainedTip);
    if (std::ranges::count_if(snapshots, &Snapshot::retainedTip) == 1) {
        return firstTip->selectionCode;
    }
    if (snapshots.size() == 1) {
        return snapshots.front().selectionCode;
    }
    return std::nullopt;
}
