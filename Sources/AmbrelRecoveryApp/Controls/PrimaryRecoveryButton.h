#pragma once

#include "AmbrelRecoveryApp/Controls/RecoveryButton.h"

/// The button of a screen's main action: on copper, at least 50 high.
class PrimaryRecoveryButton final : public RecoveryButton {
    Q_OBJECT

public:
    explicit PrimaryRecoveryButton(std::optional<RecoverySymbol> symbol, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
