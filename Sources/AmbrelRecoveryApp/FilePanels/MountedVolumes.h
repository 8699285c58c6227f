#pragma once

#include <QByteArray>

#include <filesystem>
#include <string_view>
#include <vector>

/// The mounted volumes, as listed in the system's mount table. The volumes themselves are never accessed, so one that
/// does not respond delays nothing. Any thread.
namespace MountedVolumes {

/// The mount table; a change is reported as an exceptional condition (POLLPRI) on its descriptor.
inline constexpr const char* tablePath = "/proc/self/mountinfo";

/// Returns the mount points of the volumes on which a user may keep files, each once, in the order of `table`, which is
/// in the format of the mount table. Malformed lines are skipped.
std::vector<std::filesystem::path> forFiles(const QByteArray& table);

/// Whether a volume mounted at `root` (an absolute path) with a file system of `type` (the system's name for it) may
/// hold a user's files: neither one of the system's own volumes nor one without files.
bool isForFiles(const std::filesystem::path& root, std::string_view type);

} // namespace MountedVolumes
