#pragma once

#include "SampleBackup/SampleLibrary.h"

#include <cstdint>
#include <optional>
#include <vector>

/// Writes snapshots of a library, one after the other, and publishes the latest of each branch.
class SampleHistory {
public:
    /// What the history keeps of a snapshot for the ones that follow it.
    struct Snapshot {
        Identifier identifier;
        std::int64_t createdAtMilliseconds = 0;
        std::uint64_t generation = 0;
        std::vector<std::size_t> items;
        std::vector<CommitRecord::Tombstone> tombstones;
    };

    /// Both must outlive the history.
    SampleHistory(PackageWriter& writer, const SampleLibrary& library) : writer_(writer), library_(library) {}

    /// Writes a snapshot of these items. What `parent` has beyond them is recorded as removed. Throws Failure
    /// (outputNotWritten).
    Snapshot add(std::vector<std::size_t> items, const std::optional<Snapshot>& parent,
                 std::int64_t createdAtMilliseconds, std::uint64_t writerEpoch);

    void publish(const Snapshot& snapshot) { writer_.publishHead(snapshot.identifier); }
    void withdraw(const Snapshot& snapshot) { writer_.withdrawHead(snapshot.identifier); }

private:
    PackageWriter& writer_;
    const SampleLibrary& library_;
};
