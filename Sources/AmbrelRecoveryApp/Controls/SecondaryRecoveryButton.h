#pragma once

#include "AmbrelRecoveryApp/Controls/RecoveryButton.h"

/// The button of any other action: raised a little from what it lies on.
class SecondaryRecoveryButton final : public RecoveryButton {
    Q_OBJECT

public:
    /// The height of one that stands in a row of small controls.
    static constexpr int lowHeight = 34;

    explicit SecondaryRecoveryButton(std::optional<RecoverySymbol> symbol, QWidget* parent = nullptr);

    /// Makes the button less or more high than its style has it, to stand beside something else.
    using RecoveryButton::setButtonHeight;

protected:
    void paintEvent(QPaintEvent* event) override;
};
