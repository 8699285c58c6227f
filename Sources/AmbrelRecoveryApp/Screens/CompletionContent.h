#pragma once

#include "AmbrelRecoveryApp/Screens/RecoveryScreenState.h"

#include <QString>

#include <optional>

/// The content of the screen after an export.
struct CompletionContent {
    QString title;
    /// How many items were recovered; std::nullopt without an export report.
    std::optional<QString> exported;
    /// The label of the exported folder's path, if that path is shown.
    QString pathLabel;
    QString revealLabel;
    QString chooseAnotherLabel;

    bool operator==(const CompletionContent&) const = default;
};

/// Returns the content in the current interface language. Any thread.
CompletionContent completionContent(const RecoveryScreenState& state);
