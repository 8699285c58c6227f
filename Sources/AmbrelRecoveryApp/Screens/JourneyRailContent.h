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
        /// Shown as a checkmark instead of the number.
        bool isCompleted = false;
        /// Read out by screen readers for the checkmark.
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

/// Returns the content in the current interface language. Any thread.
JourneyRailContent journeyRailContent(const RecoveryScreenState& state);
