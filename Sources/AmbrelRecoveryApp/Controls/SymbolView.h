#pragma once

#include "AmbrelRecoveryApp/Controls/RecoverySymbol.h"

#include <QColor>
#include <QFont>
#include <QWidget>

/// Shows one symbol. It adds nothing to the text beside it, so it has no accessible name.
class SymbolView final : public QWidget {
    Q_OBJECT

public:
    /// `size` is the width and the height, in device-independent pixels before enlargement (TextScale).
    SymbolView(RecoverySymbol symbol, int size, const QColor& color, QWidget* parent = nullptr,
               QFont::Weight weight = QFont::Normal);

    void setColor(const QColor& color);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const RecoverySymbol symbol_;
    const int size_;
    QColor color_;
    const QFont::Weight weight_;
};
