#pragma once

#include "AmbrelRecoveryApp/Controls/RecoverySymbol.h"

#include <QColor>
#include <QFont>
#include <QWidget>

#include <optional>

/// Shows one symbol. It adds nothing to the text beside it, so it has no accessible name.
class SymbolView final : public QWidget {
    Q_OBJECT

public:
    /// A tinted shape around a symbol, such as the brand's rounded square or the circle of a completed export. Sizes in
    /// device-independent pixels.
    struct Shape {
        int size;
        int cornerRadius;
        /// The shape has the color of the symbol at this opacity.
        double opacity;
    };

    /// `size` is the width and the height of the symbol in device-independent pixels. Only a symbol without a shape is
    /// enlarged (TextScale).
    SymbolView(RecoverySymbol symbol, int size, const QColor& color, QWidget* parent = nullptr,
               QFont::Weight weight = QFont::Normal, const std::optional<Shape>& shape = std::nullopt);

    void setColor(const QColor& color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const RecoverySymbol symbol_;
    const int size_;
    QColor color_;
    const QFont::Weight weight_;
    const std::optional<Shape> shape_;
};
