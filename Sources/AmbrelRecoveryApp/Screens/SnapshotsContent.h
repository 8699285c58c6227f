#pragma once

#include "AmbrelRecoveryApp/Controls/NoticeContent.h"
#include "AmbrelRecoveryApp/Controls/ProgressRowContent.h"
#include "AmbrelRecoveryApp/Screens/RecoveryScreenState.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRows.h"

#include <QString>

#include <optional>

/// What the screen shows on which a snapshot is picked and exported.
struct SnapshotsContent {
    /// Shown where the backup's history has forked.
    std::optional<NoticeContent> forkNotice;
    QString title;
    SnapshotRows rows;
    /// Shown in the place of the rows where the backup holds no snapshots.
    std::optional<QString> emptyText;
    /// Shown in the place of the buttons while the engine exports.
    std::optional<ProgressRowContent> exporting;
    QString exportLabel;
    bool canExport = false;
    QString chooseAnotherLabel;

    bool operator==(const SnapshotsContent&) const = default;
};

/// The screen in the current interface language. Any thread.
SnapshotsContent snapshotsContent(const RecoveryScreenState& state);
