#pragma once

#include "AmbrelRecoveryApp/Screens/RecoveryScreenState.h"

#include <QString>

#include <optional>

/// What the screen shows after an export.
struct CompletionContent {
    QString title;
    /// How many items were recovered; none without an export report.
    std::optional<QString> exported;
    /// What the path of the exported folder is called where that path is shown.
    QString pathLabel;
    QString revealLabel;
    QString startAgainLabel;

    bool operator==(const CompletionContent&) const = default;
};

/// The screen in the current interface language. Any thread.
CompletionContent completionContent(const RecoveryScreenState& state);
