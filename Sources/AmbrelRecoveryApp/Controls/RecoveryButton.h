#pragma once

#include "AmbrelRecoveryApp/Controls/RecoverySymbol.h"

#include <QPushButton>

#include <optional>

class QPainter;

/// What the two styles of button share: a symbol and a label beside it, centered, never cut off: an enlarged label
/// that is too wide is set smaller, down to its designed size. Return presses the button that has the focus, as Space
/// does.
class RecoveryButton : public QPushButton {
    Q_OBJECT

public:
    /// The visible text, which is the accessible name too.
    void setLabel(const QString& label);
    /// Has the button show its symbol alone: `label` is the accessible name and the tooltip.
    void setSymbolLabel(const QString& label);
    const QString& label() const { return label_; }

    QSize sizeHint() const override;
    /// With the label as large as designed.
    QSize minimumSizeHint() const override;
    /// The font in which the label fits into the button as it is now.
    QFont shownFont() const;

protected:
    RecoveryButton(std::optional<RecoverySymbol> symbol, const QFont& font, int height, QWidget* parent);

    void setButtonHeight(int height);

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
