#pragma once

/// Removes everything in the directory open as `directory`, including subdirectories without access permissions;
/// ignores what cannot be removed. Uses only descriptors and follows no symbolic link, so that nothing outside is
/// touched, even if others rename entries at the same time. Descends at most 100 levels. Any thread.
void removeDirectoryContents(int directory) noexcept;
