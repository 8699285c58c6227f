#pragma once

#include <QByteArray>

#include <filesystem>
#include <string_view>
#include <vector>

/// The volumes that the system has mounted, as its own table lists them. No volume is touched, so that one that does
/// not answer delays nothing. Any thread.
namespace MountedVolumes {

/// The system's table; it reports a change as an exceptional condition of its descriptor.
inline constexpr const char* tablePath = "/proc/self/mountinfo";

/// Where the volumes that a user may keep files on are mounted, each once, in the order of `table`, which is in the
/// format of the system's. A malformed line is passed over.
std::vector<std::filesystem::path> forFiles(const QByteArray& table);

/// Whether a volume that is mounted at `root` (an absolute path) with a file system of `type` (the system's name for
/// it) is one that a user may keep files on: not the system's own, and not one that holds no files.
bool isForFiles(const std::filesystem::path& root, std::string_view type);

} // namespace MountedVolumes
