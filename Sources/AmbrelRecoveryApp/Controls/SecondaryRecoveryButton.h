#pragma once

#include "AmbrelRecoveryApp/Controls/RecoveryButton.h"

/// The button of any other action: raised a little from what it lies on.
class SecondaryRecoveryButton final : public RecoveryButton {
    Q_OBJECT

public:
    explicit SecondaryRecoveryButton(std::optional<RecoverySymbol> symbol, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
