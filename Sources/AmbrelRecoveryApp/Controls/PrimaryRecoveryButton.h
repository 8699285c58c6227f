#pragma once

#include "AmbrelRecoveryApp/Controls/RecoveryButton.h"

/// The button for a screen's main action: copper, at least 50 device-independent pixels high.
class PrimaryRecoveryButton final : public RecoveryButton {
    Q_OBJECT

public:
    explicit PrimaryRecoveryButton(std::optional<RecoverySymbol> symbol, QWidget* parent = nullptr);

    static QColor fill(bool isPressed);
    /// Dark on the bright fill; bright on the darker fill of a button that is pressed or disabled.
    static QColor labelColor(bool isDimmed);

protected:
    void paintEvent(QPaintEvent* event) override;
};
