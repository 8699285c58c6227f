#include "Engine/Inspector.h"

#include "Common/Failure.h"

#include <algorithm>

namespace {

void add(std::uint64_t& sum, std::uint64_t value) {
    if (__builtin_add_overflow(sum, value, &sum)) {
        throw Failure(FailureReason::integrity, "the sizes of a snapshot are impossible");
    }
}

Inspection::Counts countsOf(const CommitRecord& record) {
    Inspection::Counts counts;
    counts.items = record.items.size();
    for (const CommitRecord::Item& item : record.items) {
        counts.resources += item.resources.size();
    }
    counts.folders = record.folders.size();
    counts.albums = record.albums.size();
    counts.memberships = record.memberships.size();
    counts.tombstones = record.tombstones.size();
    return counts;
}

void countState(PayloadState state, Inspection::PayloadFileEvidence& evidence) {
    switch (state) {
    case PayloadState::matching:
        ++evidence.matching;
        break;
    case PayloadState::missing:
        ++evidence.missing;
        break;
    case PayloadState::mismatched:
        ++evidence.mismatched;
        break;
    case PayloadState::unreadable:
        ++evidence.unreadable;
        break;
    }
}

Inspection::Branch branchOf(const History& history, std::size_t tip) {
    Inspection::Branch branch;
    branch.tipSelectionCode = history.selectionCode(tip);
    for (const std::size_t index : history.branchOf(tip)) {
        branch.snapshotSelectionCodes.push_back(history.selectionCode(index));
    }
    return branch;
}

} // namespace

Inspection Inspector::inspect() {
    const History history = package_.readHistory();
    Inspection inspection;
    inspection.disposition = history.disposition();
    inspection.commitCount = static_cast<std::int64_t>(history.commits().size());
    inspection.headCount = static_cast<std::int64_t>(history.publishedHeadCount());
    for (std::size_t index = 0; index < history.commits().size(); ++index) {
        inspection.snapshots.push_back(inspectSnapshot(history, index));
        inspection.maximumWriterEpoch =
            std::max(inspection.maximumWriterEpoch, inspection.snapshots.back().writerEpoch);
        if (history.isRetainedTip(index)) {
            inspection.preservedBranches.push_back(branchOf(history, index));
        }
    }
    if (inspection.disposition == BranchDisposition::singleBranch ||
        inspection.disposition == BranchDisposition::canonicalBranch) {
        inspection.canonicalTipSelectionCode = inspection.preservedBranches.front().tipSelectionCode;
    }
    return inspection;
}

Inspection::Snapshot Inspector::inspectSnapshot(const History& history, std::size_t index) {
    const HistoryCommit& commit = history.commits()[index];
    const CommitRecord record = package_.readCommit(commit.identifier);
    Inspection::Snapshot snapshot;
    snapshot.selectionCode = history.selectionCode(index);
    snapshot.createdAtMilliseconds = commit.createdAtMilliseconds;
    snapshot.writerEpoch = commit.writerEpoch;
    snapshot.generation = commit.generation;
    snapshot.isRetainedTip = history.isRetainedTip(index);
    snapshot.counts = countsOf(record);
    inspectResources(record, snapshot);
    return snapshot;
}

void Inspector::inspectResources(const CommitRecord& record, Inspection::Snapshot& snapshot) {
    std::unordered_map<Identifier, PayloadState> states;
    for (const CommitRecord::Item& item : record.items) {
        for (const CommitRecord::Resource& resource : item.resources) {
            add(snapshot.logicalPlaintextByteCount, resource.byteCount);
            const PayloadEvidence& evidence = evidenceFor(resource.payload);
            const auto [entry, isNew] = states.emplace(resource.payload, evidence.state);
            if (isNew) {
                add(snapshot.encryptedPayloadByteCount, evidence.fileByteCount);
            }
            if (evidence.state == PayloadState::matching && evidence.plaintextByteCount != resource.byteCount) {
                entry->second = PayloadState::mismatched;
            }
        }
    }
    snapshot.evidence.required = static_cast<std::int64_t>(states.size());
    for (const auto& [payload, state] : states) {
        countState(state, snapshot.evidence);
    }
}

const PayloadEvidence& Inspector::evidenceFor(const Identifier& payload) {
    const auto [entry, isNew] = evidence_.try_emplace(payload);
    if (isNew) {
        entry->second = package_.payloads().read(payload, [](ByteView) {});
    }
    return entry->second;
}
