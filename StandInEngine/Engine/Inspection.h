#pragma once

#include "Format/Factor.h"
#include "Package/BranchDisposition.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The result of an inspection, as reported in the document.
struct Inspection {
    struct Branch {
        std::string tipSelectionCode;
        std::vector<std::string> snapshotSelectionCodes;
    };

    struct Counts {
        std::uint64_t items = 0;
        std::uint64_t resources = 0;
        std::uint64_t folders = 0;
        std::uint64_t albums = 0;
        std::uint64_t memberships = 0;
        std::uint64_t tombstones = 0;
    };

    /// Each payload file is counted once per snapshot, however many resources share it.
    struct PayloadFileEvidence {
        std::int64_t required = 0;
        std::int64_t matching = 0;
        std::int64_t missing = 0;
        std::int64_t mismatched = 0;
        std::int64_t unreadable = 0;
    };

    struct Snapshot {
        std::string selectionCode;
        std::int64_t createdAtMilliseconds = 0;
        std::uint64_t writerEpoch = 0;
        std::uint64_t generation = 0;
        bool isRetainedTip = false;
        Counts counts;
        /// The total of all resources, shared or not.
        std::uint64_t logicalPlaintextByteCount = 0;
        /// The total of the payload files as found, each counted once.
        std::uint64_t encryptedPayloadByteCount = 0;
        PayloadFileEvidence evidence;
    };

    std::uint64_t formatVersion = 0;
    Factor unlockedFactor = Factor::backupPassphrase;
    BranchDisposition disposition = BranchDisposition::noPublishedHead;
    /// Set only if a head is published and there is exactly one retained tip.
    std::optional<std::string> canonicalTipSelectionCode;
    std::int64_t commitCount = 0;
    std::int64_t headCount = 0;
    std::uint64_t maximumWriterEpoch = 0;
    std::vector<Branch> preservedBranches;
    std::vector<Snapshot> snapshots;
};
