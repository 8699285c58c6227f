#pragma once

#include "AmbrelPlatform/UniqueDescriptor.h"

#include <filesystem>

/// Watches a folder for changes.
namespace FolderWatch {

/// Returns a descriptor that becomes readable once an item in `folder` is added, removed or renamed or its permissions
/// change. Returns an empty one if the folder cannot be watched. Blocks as long as the file system does; any thread.
UniqueDescriptor begin(const std::filesystem::path& folder);

/// Discards pending events of `watch`, a descriptor from begin(), so that only the next change makes it readable. Does
/// not block; any thread.
void clear(int watch);

} // namespace FolderWatch
