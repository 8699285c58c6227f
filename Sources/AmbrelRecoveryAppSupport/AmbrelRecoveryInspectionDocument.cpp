#include "AmbrelRecoveryAppSupport/AmbrelRecoveryInspectionDocument.h"

#include "AmbrelRecoveryAppSupport/DocumentObject.h"

#include <algorithm>
#include <iterator>

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

template<typename Value>
std::vector<Value> each(const std::vector<DocumentObject>& objects, Value (*decode)(const DocumentObject&)) {
    std::vector<Value> values;
    values.reserve(objects.size());
    std::ranges::transform(objects, std::back_inserter(values), decode);
    return values;
}

} // namespace

AmbrelRecoveryInspectionDocument AmbrelRecoveryInspectionDocument::decode(std::string_view json) {
    return DocumentObject::parse(json, [](const DocumentObject& object) {
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
            .preservedBranches = each(object.objects("preservedBranches"), branch),
            .snapshots = each(object.objects("snapshots"), snapshot),
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
