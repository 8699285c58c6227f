#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the engine reports about an unlocked backup package. Strings are UTF-8. A value that never changes; what
/// never changes cannot be moved from either, so that moving it copies every snapshot.
struct AmbrelRecoveryInspectionDocument {
    /// A line of history that the engine preserved.
    struct Branch {
        const std::string tipSelectionCode{};
        const std::vector<std::string> snapshotSelectionCodes{};

        bool operator==(const Branch&) const = default;
    };

    struct Counts {
        const std::uint64_t items = 0;
        const std::uint64_t resources = 0;
        const std::uint64_t folders = 0;
        const std::uint64_t albums = 0;
        const std::uint64_t memberships = 0;
        const std::uint64_t tombstones = 0;

        bool operator==(const Counts&) const = default;
    };

    /// Whether the payload files that a snapshot needs are present and intact.
    struct PayloadFileEvidence {
        /// The engine's verdict, which is not recomputed from the counts.
        const bool complete = false;
        const std::int64_t requiredFileCount = 0;
        const std::int64_t matchingFileCount = 0;
        const std::int64_t missingFileCount = 0;
        const std::int64_t mismatchedFileCount = 0;
        const std::int64_t unreadableFileCount = 0;

        bool operator==(const PayloadFileEvidence&) const = default;
    };

    struct Snapshot {
        /// Names the snapshot to the engine and is its identity everywhere.
        const std::string selectionCode{};
        const std::int64_t createdAtUTCMilliseconds = 0;
        const std::uint64_t writerEpoch = 0;
        const std::uint64_t generation = 0;
        /// A retained tip of history.
        const bool retainedTip = false;
        const Counts counts{};
        /// Bytes of the content once decrypted.
        const std::uint64_t logicalPlaintextByteCount = 0;
        /// Bytes of the payload files in the package.
        const std::uint64_t encryptedPayloadByteCount = 0;
        const PayloadFileEvidence payloadFileEvidence{};

        const std::string& id() const { return selectionCode; }
        bool operator==(const Snapshot&) const = default;
    };

    static constexpr std::string_view expectedSchemaIdentifier = "com.ambrel.recovery.cli-inspection.v1";
    static constexpr std::string_view expectedFormatIdentifier = "com.ambrel.backup.v1";
    /// The dispositions that are acted on; the engine writes others too.
    static constexpr std::string_view unresolvedFork = "unresolved-fork";
    static constexpr std::string_view noPublishedHead = "no-published-head";

    const std::string schemaIdentifier{};
    const std::string formatIdentifier{};
    const std::uint64_t formatVersion = 0;
    const std::string unlockedFactor{};
    const std::string branchDisposition{};
    const std::optional<std::string> canonicalTipSelectionCode{};
    const std::int64_t authenticatedCommitCount = 0;
    const std::int64_t authenticatedHeadCount = 0;
    const std::uint64_t maximumWriterEpoch = 0;
    const std::vector<Branch> preservedBranches{};
    /// In the engine's order.
    const std::vector<Snapshot> snapshots{};

    /// Decodes the whole of `json`. Identifiers are not compared, unknown keys are ignored. Throws
    /// DocumentDecodingError. Any thread.
    static AmbrelRecoveryInspectionDocument decode(std::string_view json);

    /// Whether this is an inspection of the kind and of the package format that this application knows.
    bool hasExpectedIdentifiers() const {
        return schemaIdentifier == expectedSchemaIdentifier && formatIdentifier == expectedFormatIdentifier;
    }

    /// The snapshot that an unforked history makes the obvious choice: the only retained tip, or the only snapshot.
    std::optional<std::string> recommendedSnapshotCode() const;

    bool operator==(const AmbrelRecoveryInspectionDocument&) const = default;
};
