#pragma once

/// Gives a folder its final name in one step that never replaces anything. The results are 0 or an errno value;
/// EEXIST when something has that name already.
namespace ExclusiveRename {

/// Renames `from` to `to`, both in the open folder `parent`, by whichever of the two ways the file system knows.
int rename(int parent, const char* from, const char* to);

/// The way for file systems that cannot refuse to replace: reserves the name with an empty folder, which is the one
/// thing that a renamed folder may take the place of. Whatever somebody puts there meanwhile is kept.
int renameOntoReservedName(int parent, const char* from, const char* to);

} // namespace ExclusiveRename
