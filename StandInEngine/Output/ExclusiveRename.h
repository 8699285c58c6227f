#pragma once

/// Gives a folder its final name atomically, without replacing anything. The functions return 0 or an errno value;
/// EEXIST if the name is taken.
namespace ExclusiveRename {

/// Renames `from` to `to`, both in the open folder `parent`, with whichever of the two methods the file system
/// supports.
int rename(int parent, const char* from, const char* to);

/// For file systems without an exclusive rename: reserves the name with an empty folder, which is the only thing that a
/// renamed folder can replace. If somebody puts anything into it in the meantime, that is kept.
int renameOntoReservedName(int parent, const char* from, const char* to);

} // namespace ExclusiveRename
