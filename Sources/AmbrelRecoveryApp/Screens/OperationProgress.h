#pragma once

#include "AmbrelRecoveryApp/Controls/ProgressRowContent.h"

#include <QString>

#include <optional>

/// Returns the row for a running operation in the current interface language. `fraction` is 0 to 1, or std::nullopt if
/// unknown. Any thread.
ProgressRowContent operationProgress(const QString& title, const std::optional<double>& fraction);
