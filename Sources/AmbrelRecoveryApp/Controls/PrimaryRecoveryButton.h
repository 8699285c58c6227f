#pragma once

#include "AmbrelRecoveryApp/Controls/RecoveryButton.h"

/// The button for a screen's main action, in PrimaryRecoveryButtonStyle.
class PrimaryRecoveryButton final : public RecoveryButton {
    Q_OBJECT

public:
    explicit PrimaryRecoveryButton(std::optional<RecoverySymbol> symbol, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
