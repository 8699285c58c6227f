#pragma once

#include "AmbrelRecoveryApp/Controls/RecoverySymbol.h"
#include "AmbrelRecoveryApp/FilePanels/LatestTask.h"

#include <QFile>
#include <QListWidget>

#include <filesystem>
#include <vector>

/// The side rail of a panel with the list of places: home, the user's standard folders that exist, and the mounted
/// volumes on which a user may keep files, updated as they change. A click or Return opens a place. Home and the
/// volumes are listed immediately. No place is accessed on this thread, so one that does not respond delays nothing.
/// Main thread.
class PlacesView final : public QListWidget {
    Q_OBJECT

public:
    explicit PlacesView(QWidget* parent = nullptr);

    /// The folder of the place in `row`, which must be valid.
    std::filesystem::path path(int row) const { return places_.at(static_cast<std::size_t>(row)); }

    /// Marks the place at `folder`, if there is one.
    void showFolder(const std::filesystem::path& folder);

signals:
    void placeChosen(const std::filesystem::path& folder);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void readVolumes();
    void fill();
    void add(const QString& name, const std::filesystem::path& folder, RecoverySymbol symbol);

    std::filesystem::path folder_;
    LatestTask finding_;
    std::vector<std::filesystem::path> usualFolders_;
    std::vector<std::filesystem::path> volumes_;
    /// The folders of all places, in the order of the rows.
    std::vector<std::filesystem::path> places_;
    QFile volumeTable_;
};
