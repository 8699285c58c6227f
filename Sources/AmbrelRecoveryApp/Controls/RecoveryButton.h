#pragma once

#include "AmbrelRecoveryApp/Controls/RecoverySymbol.h"

#include <QPushButton>

#include <optional>

class QPainter;

/// What the two styles of button share: a symbol and a label beside it, centered, never cut off. Return presses the
/// button that has the focus, as Space does; a key that is held presses it once.
class RecoveryButton : public QPushButton {
    Q_OBJECT

public:
    /// The visible text, which is the accessible name too.
    void setLabel(const QString& label);
    const QString& label() const { return label_; }
    /// Makes the button less or more high than its style has it.
    void setButtonHeight(int height);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void keyPressEvent(QKeyEvent* event) override;

    RecoveryButton(std::optional<RecoverySymbol> symbol, const QFont& font, int height, QWidget* parent);

    /// Draws symbol and label in `color`.
    void paintLabel(QPainter& painter, const QColor& color) const;

    static constexpr int cornerRadius = 14;

private:
    int labelWidth() const;

    const std::optional<RecoverySymbol> symbol_;
    int height_;
    QString label_;
};
