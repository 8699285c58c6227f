#pragma once

/// The state of a package's history.
enum class BranchDisposition {
    /// One retained tip, and all commits are on the single line that leads to it.
    singleBranch,
    /// One retained tip, but the history has forked: the branches were merged, or one was abandoned.
    canonicalBranch,
    /// Several retained tips: published heads that do not continue each other.
    unresolvedFork,
    /// No published head.
    noPublishedHead,
};
