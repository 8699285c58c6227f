#include "AmbrelRecoveryApp/FilePanels/MountedVolumes.h"

#include <QList>

#include <algorithm>
#include <array>
#include <string>

namespace {

/// Directories reserved for the system.
constexpr std::array systemFolders{"/boot", "/dev", "/efi", "/etc", "/proc", "/run", "/snap", "/sys", "/usr", "/var"};
/// The directories in them in which removable and network volumes are mounted.
constexpr std::array mountFolders{"/run/media", "/var/media", "/var/mnt"};
/// File systems in memory, of other programs, and of software packages.
constexpr std::array<std::string_view, 9> typesWithoutFiles{
    "autofs", "devtmpfs", "fuse.lxcfs", "fuse.portal", "fuse.gvfsd-fuse", "nsfs", "squashfs", "ramfs", "tmpfs"};

bool isWithinAny(std::string_view path, const auto& folders) {
    return std::ranges::any_of(folders, [&](std::string_view folder) {
        return path == folder || (path.starts_with(folder) && path[folder.size()] == '/');
    });
}

bool isOctal(char digit) {
    return digit >= '0' && digit <= '7';
}

/// The table encodes a space, a tab, a line feed and a backslash as a backslash and three octal digits.
std::string unescaped(const QByteArray& field) {
    std::string result;
    for (qsizetype index = 0; index < field.size(); ++index) {
        const bool isEscape = field[index] == '\\' && index + 3 < field.size() && isOctal(field[index + 1]) &&
                              isOctal(field[index + 2]) && isOctal(field[index + 3]);
        if (isEscape) {
            result += static_cast<char>(field.mid(index + 1, 3).toInt(nullptr, 8));
            index += 3;
        } else {
            result += field[index];
        }
    }
    return result;
}

} // namespace

bool MountedVolumes::isForFiles(const std::filesystem::path& root, std::string_view type) {
    const bool hasFiles = std::ranges::find(typesWithoutFiles, type) == typesWithoutFiles.end();
    return hasFiles && (!isWithinAny(root.native(), systemFolders) || isWithinAny(root.native(), mountFolders));
}

std::vector<std::filesystem::path> MountedVolumes::forFiles(const QByteArray& table) {
    constexpr qsizetype rootField = 4;
    std::vector<std::filesystem::path> roots;
    for (const QByteArray& line : table.split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        // Any number of optional fields precedes the separator.
        const qsizetype separator = fields.indexOf("-");
        if (separator <= rootField || separator + 1 >= fields.size()) {
            continue;
        }
        std::filesystem::path root = unescaped(fields[rootField]);
        if (root.is_absolute() && isForFiles(root, fields[separator + 1].constData()) &&
            std::ranges::find(roots, root) == roots.end()) {
            roots.push_back(std::move(root));
        }
    }
    return roots;
}
