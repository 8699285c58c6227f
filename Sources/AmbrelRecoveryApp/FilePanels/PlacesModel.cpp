#include "AmbrelRecoveryApp/FilePanels/PlacesModel.h"

#include "AmbrelRecoveryApp/FilePanels/MountedVolumes.h"

#include <QSocketNotifier>

#include <algorithm>
#include <cstddef>

PlacesModel::PlacesModel(QObject* parent)
    : QAbstractListModel(parent), volumeTable_(QString::fromLatin1(MountedVolumes::tablePath)) {
    show();
    findFolders();
    watchVolumes();
}

/// Where no thread can be had, home and the volumes are enough to reach every folder.
void PlacesModel::findFolders() {
    finding_.start(PanelPlaces::usualFolders, [this](std::vector<PanelPlaces::Place> folders) {
        folders_ = std::move(folders);
        show();
    });
}

void PlacesModel::watchVolumes() {
    if (volumeTable_.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        auto* const changes = new QSocketNotifier(volumeTable_.handle(), QSocketNotifier::Exception, this);
        connect(changes, &QSocketNotifier::activated, this, &PlacesModel::show);
    }
}

void PlacesModel::show() {
    std::vector<PanelPlaces::Place> places{PanelPlaces::home()};
    for (const auto& group : {folders_, PanelPlaces::volumes()}) {
        for (const PanelPlaces::Place& place : group) {
            if (std::ranges::find(places, place.path, &PanelPlaces::Place::path) == places.end()) {
                places.push_back(place);
            }
        }
    }
    if (places != places_) {
        beginResetModel();
        places_ = std::move(places);
        endResetModel();
    }
}

const std::filesystem::path& PlacesModel::path(const QModelIndex& index) const {
    return places_.at(static_cast<std::size_t>(index.row())).path;
}

QModelIndex PlacesModel::indexOf(const std::filesystem::path& path) const {
    const auto found = std::ranges::find(places_, path, &PanelPlaces::Place::path);
    return found == places_.end() ? QModelIndex() : index(static_cast<int>(found - places_.begin()));
}

int PlacesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(places_.size());
}

QVariant PlacesModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const PanelPlaces::Place& place = places_.at(static_cast<std::size_t>(index.row()));
    switch (role) {
    case Qt::DisplayRole:
        return place.name;
    case SymbolRole:
        return static_cast<int>(place.symbol);
    default:
        return {};
    }
}
