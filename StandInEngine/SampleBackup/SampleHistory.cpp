#include "SampleBackup/SampleHistory.h"

#include <algorithm>
#include <iterator>
#include <utility>

SampleHistory::Snapshot SampleHistory::add(std::vector<std::size_t> items, const std::optional<Snapshot>& parent,
                                           std::int64_t createdAtMilliseconds, std::uint64_t writerEpoch) {
    Snapshot snapshot;
    snapshot.createdAtMilliseconds = createdAtMilliseconds;
    snapshot.generation = parent ? parent->generation + 1 : 1;
    CommitRecord record = library_.recordOf(items);
    if (parent) {
        record.parents.push_back(parent->identifier);
        const auto isBack = [&](const CommitRecord::Tombstone& tombstone) {
            return std::ranges::find(record.items, tombstone.item, &CommitRecord::Item::identifier) !=
                   record.items.end();
        };
        std::ranges::remove_copy_if(parent->tombstones, std::back_inserter(snapshot.tombstones), isBack);
        for (const std::size_t item : parent->items) {
            if (std::ranges::find(items, item) == items.end()) {
                snapshot.tombstones.push_back({library_.item(item).identifier, createdAtMilliseconds});
            }
        }
    }
    record.createdAtMilliseconds = createdAtMilliseconds;
    record.generation = snapshot.generation;
    record.writerEpoch = writerEpoch;
    record.tombstones = snapshot.tombstones;
    snapshot.items = std::move(items);
    snapshot.identifier = writer_.addCommit(record);
    return snapshot;
}
