#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The engine's report on an unlocked backup package. Strings are UTF-8. Immutable; because its members are const,
/// moving it copies every snapshot.
struct AmbrelRecoveryInspectionDocument {
    /// A branch of the history that the engine preserved.
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

    /// Whether the payload files needed by a snapshot are present and intact.
    struct PayloadFileEvidence {
        /// The engine's verdict; not recomputed from the counts.
        const bool complete = false;
        const std::int64_t requiredFileCount = 0;
        const std::int64_t matchingFileCount = 0;
        const std::int64_t missingFileCount = 0;
        const std::int64_t mismatchedFileCount = 0;
        const std::int64_t unreadableFileCount = 0;

        bool operator==(const PayloadFileEvidence&) const = default;
    };

    struct Snapshot {
        /// Identifies the snapshot to the engine and throughout the application.
        const std::string selectionCode{};
        const std::int64_t createdAtUTCMilliseconds = 0;
        const std::uint64_t writerEpoch = 0;
        const std::uint64_t generation = 0;
        /// Whether this is a retained tip of the history.
        const bool retainedTip = false;
        const Counts counts{};
        /// The size of the decrypted content in bytes.
        const std::uint64_t logicalPlaintextByteCount = 0;
        /// The size of the payload files in the package in bytes.
        const std::uint64_t encryptedPayloadByteCount = 0;
        const PayloadFileEvidence payloadFileEvidence{};

        const std::string& id() const { return selectionCode; }
        bool operator==(const Snapshot&) const = default;
    };

    static constexpr std::string_view expectedSchemaIdentifier = "com.ambrel.recovery.cli-inspection.v1";
    static constexpr std::string_view expectedFormatIdentifier = "com.ambrel.backup.v1";
    /// The dispositions that are handled; the engine reports others, too.
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

    /// Decodes `json`, which must be a complete document. Identifiers are not checked and unknown keys are ignored.
    /// Throws DocumentDecodingError. Any thread.
    static AmbrelRecoveryInspectionDocument decode(std::string_view json);

    /// Whether this is an inspection of the supported kind and package format.
    bool hasExpectedIdentifiers() const {
        return schemaIdentifier == expectedSchemaIdentifier && formatIdentifier == expectedFormatIdentifier;
    }

    /// The obvious choice in an unforked history: the only retained tip, or the only snapshot. Otherwise std::nullopt.
    std::optional<std::string> recommendedSnapshotCode() const;

    bool operator==(const AmbrelRecoveryInspectionDocument&) const = default;
};
