#pragma once

#include "AmbrelRecoveryApp/Controls/ProgressRowContent.h"

#include <QString>

#include <optional>

/// The row of a running operation in the current interface language. `fraction` is 0 to 1, or none where it is not
/// known. Any thread.
ProgressRowContent operationProgress(const QString& title, const std::optional<double>& fraction);
