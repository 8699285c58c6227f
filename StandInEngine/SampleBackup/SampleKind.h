#pragma once

/// What is special about a sample package.
enum class SampleKind {
    /// Several snapshots on one line, everything in order.
    ordinary,
    /// Two published heads that share their beginning.
    forked,
    /// Like the ordinary one, but a payload file of the latest snapshot is not there.
    missingPayload,
    /// Like the ordinary one, but a payload file of the latest snapshot has a changed byte.
    damagedPayload,
    /// Like the ordinary one, but of a version that the engine does not know.
    unsupportedVersion,
};
