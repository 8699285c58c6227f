#pragma once

#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRows.h"

#include <QScrollArea>

/// What the snapshot list is measured against: a frame with five labels for every row, in a scroll area.
class RowWidgets final : public QScrollArea {
public:
    explicit RowWidgets(const SnapshotRows& rows, QWidget* parent = nullptr);
};
