#pragma once

/// The state of a package's history.
enum class BranchDisposition {
    /// One published head, and every commit lies on the one line that leads to it.
    singleBranch,
    /// One published head, but the history forked somewhere: joined again, or with a branch that was given up.
    canonicalBranch,
    /// Several published heads, none of which continues another.
    unresolvedFork,
    /// No published head at all.
    noPublishedHead,
};
