#pragma once

#include "AmbrelRecoveryApp/Controls/RecoveryButton.h"

/// The button for any other action, in SecondaryRecoveryButtonStyle.
class SecondaryRecoveryButton final : public RecoveryButton {
    Q_OBJECT

public:
    /// The height of a button in a row of small controls.
    static constexpr int lowHeight = 34;

    explicit SecondaryRecoveryButton(std::optional<RecoverySymbol> symbol, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
