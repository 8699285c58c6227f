#include "AmbrelRecoveryApp/Controls/SymbolView.h"

#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"

#include <QPainter>

SymbolView::SymbolView(RecoverySymbol symbol, int size, const QColor& color, QWidget* parent, QFont::Weight weight)
    : QWidget(parent), symbol_(symbol), size_(TextScale::scaled(size)), color_(color), weight_(weight) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SymbolView::setColor(const QColor& color) {
    if (color_ != color) {
        color_ = color;
        update();
    }
}

QSize SymbolView::sizeHint() const {
    return {size_, size_};
}

void SymbolView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    SymbolPainter::paint(painter, symbol_, rect(), color_, weight_);
}
