#include "AmbrelRecoveryApp/Platform/PanelPlaces.h"

#include <QDir>
#include <QStandardPaths>
#include <QStorageInfo>

namespace {

/// Volumes that hold the system's own files and no user's.
bool isSystemVolume(const QString& root) {
    return root.startsWith(QStringLiteral("/boot")) || root.startsWith(QStringLiteral("/snap/"));
}

void append(QList<QUrl>& places, const QString& folder) {
    const QUrl place = QUrl::fromLocalFile(folder);
    if (QDir(folder).exists() && !places.contains(place)) {
        places.append(place);
    }
}

} // namespace

QList<QUrl> PanelPlaces::urls() {
    QList<QUrl> places;
    append(places, QDir::homePath());
    for (const auto location : {QStandardPaths::DesktopLocation, QStandardPaths::DocumentsLocation,
                                QStandardPaths::DownloadLocation, QStandardPaths::PicturesLocation}) {
        append(places, QStandardPaths::writableLocation(location));
    }
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        if (volume.isReady() && volume.device().startsWith("/dev/") && !isSystemVolume(volume.rootPath())) {
            append(places, volume.rootPath());
        }
    }
    return places;
}
