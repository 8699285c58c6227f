#pragma once

#include "AmbrelRecoveryApp/Screens/RecoveryScreenState.h"

#include <QString>
#include <QUuid>

#include <optional>

/// What the error alert shows.
struct ErrorAlertContent {
    /// Alerts with different ids are different, even if their texts are the same.
    QUuid id;
    QString title;
    QString body;
    QString okayLabel;

    bool operator==(const ErrorAlertContent&) const = default;
};

/// Returns the alert, or std::nullopt if no error is presented. Any thread.
std::optional<ErrorAlertContent> errorAlertContent(const RecoveryScreenState& state);
