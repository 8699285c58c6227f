#pragma once

#include "AmbrelRecoveryApp/FilePanels/LatestTask.h"
#include "AmbrelRecoveryApp/FilePanels/PanelPlaces.h"

#include <QFile>
#include <QListWidget>

#include <filesystem>
#include <vector>

/// The list of places beside the list of a panel: home, the usual folders that exist, and the mounted volumes as they
/// come and go. A click or Return goes to a place. Home and the volumes are there at once; no place is asked on this
/// thread, so that one that does not answer delays nothing. Main thread.
class PlacesView final : public QListWidget {
    Q_OBJECT

public:
    explicit PlacesView(QWidget* parent = nullptr);

    /// The folder of the place in `row`, one of the list's.
    const std::filesystem::path& path(int row) const { return places_.at(static_cast<std::size_t>(row)).path; }

    /// Marks the place that is shown; none where no place is at `folder`.
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
