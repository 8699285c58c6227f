#pragma once

#include "AmbrelRecoveryApp/FilePanels/LatestTask.h"
#include "AmbrelRecoveryApp/FilePanels/PanelPlaces.h"

#include <QAbstractListModel>
#include <QFile>

/// The places beside the list of a panel: home, the usual folders that exist, and the mounted volumes as they come and
/// go. Home and the volumes are there at once; no place is asked on this thread, so that one that does not answer
/// delays nothing. Main thread.
class PlacesModel final : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role {
        /// The `RecoverySymbol` of a place, as an int.
        SymbolRole = Qt::UserRole
    };

    explicit PlacesModel(QObject* parent = nullptr);

    /// The folder of the place in the row of a valid index.
    const std::filesystem::path& path(const QModelIndex& index) const;
    /// The index of the place at this path; invalid where there is none.
    QModelIndex indexOf(const std::filesystem::path& path) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    void findFolders();
    void watchVolumes();
    void show();

    LatestTask finding_;
    std::vector<PanelPlaces::Place> folders_;
    std::vector<PanelPlaces::Place> places_;
    QFile volumeTable_;
};
