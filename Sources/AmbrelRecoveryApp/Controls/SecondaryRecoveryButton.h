#pragma once

#include "AmbrelRecoveryApp/Controls/RecoveryButton.h"

/// The button for any other action, slightly raised from its background.
class SecondaryRecoveryButton final : public RecoveryButton {
    Q_OBJECT

public:
    /// The height of a button in a row of small controls.
    static constexpr int lowHeight = 34;
    /// The opacity of the whole button while it is pressed.
    static constexpr double pressedOpacity = 0.78;

    explicit SecondaryRecoveryButton(std::optional<RecoverySymbol> symbol, QWidget* parent = nullptr);

    static QColor fill();
    static QColor labelColor();

protected:
    void paintEvent(QPaintEvent* event) override;
};
