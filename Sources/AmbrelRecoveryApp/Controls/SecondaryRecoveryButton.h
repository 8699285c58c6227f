#pragma once

#include "AmbrelRecoveryApp/Controls/RecoveryButton.h"

/// The button for any other action, slightly raised from its background.
class SecondaryRecoveryButton final : public RecoveryButton {
    Q_OBJECT

public:
    /// The height of a button in a row of small controls.
    static constexpr int lowHeight = 34;

    explicit SecondaryRecoveryButton(std::optional<RecoverySymbol> symbol, QWidget* parent = nullptr);

    /// Overrides the height that the style defines, for a button beside another control.
    using RecoveryButton::setButtonHeight;

protected:
    void paintEvent(QPaintEvent* event) override;
};
