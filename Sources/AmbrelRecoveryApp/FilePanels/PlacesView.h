#pragma once

#include "AmbrelRecoveryApp/FilePanels/LatestTask.h"
#include "AmbrelRecoveryApp/FilePanels/PanelPlaces.h"

#include <QFile>
#include <QListWidget>

#include <filesystem>
#include <vector>

/// The list of places in a panel: home, the standard folders that exist, and the mounted volumes, updated as they
/// change. A click or Return opens a place. Home and the volumes are listed immediately. No place is accessed on this
/// thread, so one that does not respond delays nothing. Main thread.
class PlacesView final : public QListWidget {
    Q_OBJECT

public:
    explicit PlacesView(QWidget* parent = nullptr);

    /// The folder of the place in `row`, which must be valid.
    const std::filesystem::path& path(int row) const { return places_.at(static_cast<std::size_t>(row)).path; }

    /// Marks the place at `folder`, if there is one.
    void showFolder(const std::filesystem::path& folder);

signals:
    void placeChosen(const std::filesystem::path& folder);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void findUsualFolders();
    void watchVolumes();
    void fill();
    void choose(int row);

    std::filesystem::path folder_;
    LatestTask finding_;
    std::vector<PanelPlaces::Place> usualFolders_;
    std::vector<PanelPlaces::Place> places_;
    QFile volumeTable_;
};
