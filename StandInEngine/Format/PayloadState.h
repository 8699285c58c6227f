#pragma once

/// The result of verifying one payload file.
enum class PayloadState {
    matching,
    missing,
    /// The file exists, but is not a regular file, or its content does not authenticate.
    mismatched,
    /// The file exists, but cannot be read.
    unreadable,
};
