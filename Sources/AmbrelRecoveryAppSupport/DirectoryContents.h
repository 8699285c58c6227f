#pragma once

/// Removes everything in the directory that the descriptor refers to, also what its owner locked away from himself, and
/// ignores what cannot be removed. Works below the descriptor alone and follows no symbolic link, so that nothing
/// outside is touched, whatever others do with names meanwhile. Goes down at most 100 levels. Any thread.
void removeDirectoryContents(int directory) noexcept;
