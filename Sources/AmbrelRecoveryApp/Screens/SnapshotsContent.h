#pragma once

#include "AmbrelRecoveryApp/Controls/NoticeContent.h"
#include "AmbrelRecoveryApp/Controls/ProgressRowContent.h"
#include "AmbrelRecoveryApp/Screens/RecoveryScreenState.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRows.h"

#include <QString>

#include <optional>

/// The content of the screen on which a snapshot is picked and exported.
struct SnapshotsContent {
    /// Shown if the backup's history has forked.
    std::optional<NoticeContent> forkNotice;
    QString title;
    SnapshotRows rows;
    /// Shown instead of the rows if the backup contains no snapshots.
    std::optional<QString> emptyText;
    /// Shown instead of the buttons while the engine exports.
    std::optional<ProgressRowContent> exporting;
    QString exportLabel;
    bool canExport = false;
    QString chooseAnotherLabel;

    bool operator==(const SnapshotsContent&) const = default;
};

/// Returns the content in the current interface language. Any thread.
SnapshotsContent snapshotsContent(const RecoveryScreenState& state);
