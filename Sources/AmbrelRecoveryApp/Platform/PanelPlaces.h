#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

/// The places that file panels offer beside their list.
namespace PanelPlaces {

/// The home folder, the usual folders that exist in it, and every mounted volume that a user may keep files on, each
/// once. Main thread.
QList<QUrl> urls();

/// Whether a volume that is mounted at `root` (an absolute path) with a file system of `type` (the system's name for
/// it) is one that a user may keep files on: not the system's own, and not one that holds no files.
bool isForFiles(const QString& root, const QByteArray& type);

} // namespace PanelPlaces
