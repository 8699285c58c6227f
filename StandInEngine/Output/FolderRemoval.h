#pragma once

/// Removal of folders that this program has made.
namespace FolderRemoval {

/// Removes the folder `name` in the open folder `parent` with everything in it, without following links. What cannot
/// be removed stays; there is nobody to tell.
void removeWithContents(int parent, const char* name) noexcept;

} // namespace FolderRemoval
