#pragma once

#include "SampleBackup/SampleLibrary.h"

#include <cstdint>
#include <optional>
#include <vector>

/// Writes successive snapshots of a library. The latest of each branch can be published.
class SampleHistory {
public:
    /// The part of a snapshot that later snapshots need.
    struct Snapshot {
        Identifier identifier;
        std::int64_t createdAtMilliseconds = 0;
        std::uint64_t generation = 0;
        std::vector<std::size_t> items;
        std::vector<CommitRecord::Tombstone> tombstones;
    };

    /// Both must outlive the history.
    SampleHistory(PackageWriter& writer, const SampleLibrary& library) : writer_(writer), library_(library) {}

    /// Writes a snapshot of these items. Items of `parent` that are not among them are recorded as removed. Throws
    /// Failure (outputNotWritten).
    Snapshot add(std::vector<std::size_t> items, const std::optional<Snapshot>& parent,
                 std::int64_t createdAtMilliseconds, std::uint64_t writerEpoch);

    void publish(const Snapshot& snapshot) { writer_.publishHead(snapshot.identifier); }
    void withdraw(const Snapshot& snapshot) { writer_.withdrawHead(snapshot.identifier); }

private:
    PackageWriter& writer_;
    const SampleLibrary& library_;
};
