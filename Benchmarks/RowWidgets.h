#pragma once

#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRows.h"

#include <QScrollArea>

/// A baseline for the snapshot list: a frame with five labels for each row, in a scroll area.
class RowWidgets final : public QScrollArea {
public:
    explicit RowWidgets(const SnapshotRows& rows, QWidget* parent = nullptr);
};
