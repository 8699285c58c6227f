#include "AmbrelRecoveryApp/Controls/SymbolView.h"

#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"

#include <QPainter>

SymbolView::SymbolView(RecoverySymbol symbol, int size, const QColor& color, QWidget* parent, QFont::Weight weight,
                       const std::optional<Shape>& shape)
    : QWidget(parent), symbol_(symbol), size_(shape ? size : TextScale::scaled(size)), color_(color), weight_(weight),
      shape_(shape) {
    const int side = shape ? shape->size : size_;
    setFixedSize(side, side);
}

void SymbolView::setColor(const QColor& color) {
    if (color_ != color) {
        color_ = color;
        update();
    }
}

void SymbolView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (shape_) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(RecoveryPalette::withOpacity(color_, shape_->opacity));
        painter.drawRoundedRect(rect(), shape_->cornerRadius, shape_->cornerRadius);
    }
    QRectF place(0, 0, size_, size_);
    place.moveCenter(QRectF(rect()).center());
    SymbolPainter::paint(painter, symbol_, place, color_, weight_);
}
