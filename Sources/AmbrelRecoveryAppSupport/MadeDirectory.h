#pragma once

#include "AmbrelPlatform/UniqueDescriptor.h"

#include <filesystem>

/// Opens a directory that was just made and gives it the permissions 0700, also where the umask took some of them.
/// None, with errno set, where that fails or another directory lies there by now, which is possible where others may
/// write to the folder around it. Any thread. One source file per system implements it.
UniqueDescriptor openMadeDirectory(const std::filesystem::path& path);
