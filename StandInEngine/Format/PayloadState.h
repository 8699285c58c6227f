#pragma once

/// What the verification of one payload file found.
enum class PayloadState {
    matching,
    missing,
    /// There, but not a regular file, or its content does not authenticate.
    mismatched,
    /// There, but it cannot be read.
    unreadable,
};
