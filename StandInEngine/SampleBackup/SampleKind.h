#pragma once

/// The kind of a sample package.
enum class SampleKind {
    /// Several snapshots on one line, without errors.
    ordinary,
    /// Two published heads with a common beginning.
    forked,
    /// Like ordinary, but a payload file of the latest snapshot is missing.
    missingPayload,
    /// Like ordinary, but a payload file of the latest snapshot has a changed byte.
    damagedPayload,
    /// Like ordinary, but with a version that the engine does not support.
    unsupportedVersion,
};
