#pragma once

#include "AmbrelRecoveryApp/Controls/RecoverySymbol.h"

#include <QPushButton>

#include <optional>

class QPainter;

/// What both kinds of buttons share: a symbol and a label beside it, centered and never cut off. An enlarged label
/// that is too wide is shown smaller, down to its designed size. Return presses the button that has the focus, as Space
/// does.
class RecoveryButton : public QPushButton {
    Q_OBJECT

public:
    /// Sets the visible text, which is also the accessible name.
    void setLabel(const QString& label);
    /// For a button that shows only its symbol: `label` is the accessible name and the tooltip.
    void setSymbolLabel(const QString& label);
    const QString& label() const { return label_; }

    /// Replaces the usual height of such a button, for one beside another control.
    void setButtonHeight(int height);

    QSize sizeHint() const override;
    /// The size with the label as large as designed.
    QSize minimumSizeHint() const override;
    /// The font in which the label fits into the button at its current width.
    QFont shownFont() const;

protected:
    /// `height` is the usual height in device-independent pixels; a larger font makes the button higher.
    RecoveryButton(std::optional<RecoverySymbol> symbol, const QFont& font, int height, QWidget* parent);

    /// Draws symbol and label in `color`.
    void paintLabel(QPainter& painter, const QColor& color) const;

    static constexpr int cornerRadius = 14;

private:
    int contentWidth(const QFont& font) const;
    int horizontalPadding() const;
    int designedSize() const;

    const std::optional<RecoverySymbol> symbol_;
    int height_;
    QString label_;
};
