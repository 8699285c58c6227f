#pragma once

#include <QList>
#include <QUrl>

/// The places that file panels offer beside their list.
namespace PanelPlaces {

/// The home folder, the usual folders that exist in it, and every mounted volume of a real device, each once. Main
/// thread.
QList<QUrl> urls();

} // namespace PanelPlaces
