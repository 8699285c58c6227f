#pragma once

#include "AmbrelRecoveryApp/Screens/RecoveryScreenState.h"

#include <QString>

#include <array>

/// What the side rail shows.
struct JourneyRailContent {
    struct Step {
        /// Two digits.
        QString number;
        QString title;
        bool isActive = false;
        /// Shown as a checkmark in the place of the number.
        bool isCompleted = false;
        /// What screen readers say for the checkmark.
        QString spokenCheckmark;

        bool operator==(const Step&) const = default;
    };

    QString brand;
    QString product;
    std::array<Step, 3> steps;
    QString noAccount;
    QString readOnly;

    bool operator==(const JourneyRailContent&) const = default;
};

/// The rail in the current interface language. Any thread.
JourneyRailContent journeyRailContent(const RecoveryScreenState& state);
