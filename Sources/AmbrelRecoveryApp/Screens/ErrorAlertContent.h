#pragma once

#include "AmbrelRecoveryApp/Screens/RecoveryScreenState.h"

#include <QString>
#include <QUuid>

#include <optional>

/// What the error alert shows.
struct ErrorAlertContent {
    /// Two alerts with different identities are two alerts, even where their texts are the same.
    QUuid id;
    QString title;
    QString body;
    QString okayLabel;

    bool operator==(const ErrorAlertContent&) const = default;
};

/// The alert, or none where no error is presented. Any thread.
std::optional<ErrorAlertContent> errorAlertContent(const RecoveryScreenState& state);
