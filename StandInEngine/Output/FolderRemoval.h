#pragma once

/// Removes folders that this program has created.
namespace FolderRemoval {

/// Removes the folder `name` in the open folder `parent` with its contents, without following links. Errors are
/// ignored.
void removeWithContents(int parent, const char* name) noexcept;

} // namespace FolderRemoval
