#pragma once

#include <QString>

#include <optional>

/// What a progress row shows.
struct ProgressRowContent {
    /// How far the operation is, 0 to 1; none where that is not known.
    std::optional<double> fraction;
    /// The fraction as a text; empty where it is not known.
    QString percent;
    QString title;
    QString cancelLabel;

    bool operator==(const ProgressRowContent&) const = default;
};
