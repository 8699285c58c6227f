#pragma once

#include "AmbrelRecoveryApp/FilePanels/PlacesModel.h"

#include <QListView>

/// The list of places beside the list of a panel. A click or Return goes to a place.
class PlacesView final : public QListView {
    Q_OBJECT

public:
    explicit PlacesView(QWidget* parent = nullptr);

    /// Marks the place that is shown; none where no place is at `folder`.
    void showFolder(const std::filesystem::path& folder);

signals:
    void placeChosen(const std::filesystem::path& folder);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    PlacesModel* const model_;
    std::filesystem::path folder_;
};
