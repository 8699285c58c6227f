#pragma once

#include <QString>

#include <optional>

/// What a progress row shows.
struct ProgressRowContent {
    /// The progress of the operation, 0 to 1; std::nullopt if unknown.
    std::optional<double> fraction;
    /// The fraction as text; empty if unknown.
    QString percent;
    QString title;
    QString cancelLabel;

    bool operator==(const ProgressRowContent&) const = default;
};
