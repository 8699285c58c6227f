#include "AmbrelRecoveryApp/Platform/PanelPlaces.h"

#include <QDir>
#include <QStandardPaths>
#include <QStorageInfo>

#include <algorithm>
#include <array>
#include <string_view>

namespace {

/// What the system keeps for itself.
constexpr std::array systemFolders{"/boot", "/dev", "/efi", "/etc", "/proc", "/run", "/snap", "/sys", "/usr", "/var"};
/// Where removable and network volumes are mounted within those.
constexpr std::array mountFolders{"/run/media", "/var/media", "/var/mnt"};
/// File systems in memory, of other programs, and of software packages.
constexpr std::array<std::string_view, 8> typesWithoutFiles{"autofs", "devtmpfs", "fuse.lxcfs", "fuse.portal",
                                                            "nsfs",   "squashfs", "ramfs",      "tmpfs"};

bool isWithin(const QString& path, const char* folder) {
    const QLatin1String name(folder);
    return path == name || path.startsWith(name + u'/');
}

bool isWithinAny(const QString& path, const auto& folders) {
    return std::ranges::any_of(folders, [&](const char* folder) { return isWithin(path, folder); });
}

void append(QList<QUrl>& places, const QString& folder) {
    const QUrl place = QUrl::fromLocalFile(folder);
    if (QDir(folder).exists() && !places.contains(place)) {
        places.append(place);
    }
}

} // namespace

bool PanelPlaces::isForFiles(const QString& root, const QByteArray& type) {
    const bool hasFiles =
        std::ranges::find(typesWithoutFiles, std::string_view(type.constData())) == typesWithoutFiles.end();
    return hasFiles && (!isWithinAny(root, systemFolders) || isWithinAny(root, mountFolders));
}

QList<QUrl> PanelPlaces::urls() {
    QList<QUrl> places;
    append(places, QDir::homePath());
    for (const auto location : {QStandardPaths::DesktopLocation, QStandardPaths::DocumentsLocation,
                                QStandardPaths::DownloadLocation, QStandardPaths::PicturesLocation}) {
        append(places, QStandardPaths::writableLocation(location));
    }
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        if (volume.isValid() && volume.isReady() && isForFiles(volume.rootPath(), volume.fileSystemType())) {
            append(places, volume.rootPath());
        }
    }
    return places;
}
