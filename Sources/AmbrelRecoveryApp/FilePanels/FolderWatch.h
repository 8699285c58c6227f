#pragma once

#include "AmbrelPlatform/UniqueDescriptor.h"

#include <filesystem>

/// Watching a folder.
namespace FolderWatch {

/// A descriptor that becomes readable once an item comes into `folder`, leaves it or gets another name or other
/// permissions; none where that cannot be watched. Blocks for as long as the file system does; any thread.
UniqueDescriptor begin(const std::filesystem::path& folder);

/// Forgets what `watch`, a descriptor of begin(), has told, so that it is readable after the next change alone. Does
/// not block; any thread.
void clear(int watch);

} // namespace FolderWatch
