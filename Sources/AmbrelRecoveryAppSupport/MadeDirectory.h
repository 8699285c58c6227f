#pragma once

#include "AmbrelPlatform/UniqueDescriptor.h"

#include <filesystem>

/// Opens a directory that was just created and sets its permissions to 0700, even if the umask removed some of them.
/// Returns an empty descriptor and sets errno if that fails, or if the path now leads to a directory that belongs to
/// another user or grants access to others, which is possible if others may write to the parent directory. Any thread.
/// One source file per system implements it.
UniqueDescriptor openMadeDirectory(const std::filesystem::path& path);
