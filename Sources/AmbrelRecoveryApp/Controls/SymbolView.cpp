#include "AmbrelRecoveryApp/Controls/SymbolView.h"

#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"

#include <QPainter>

SymbolView::SymbolView(RecoverySymbol symbol, int size, const QColor& color, QWidget* parent)
    : QWidget(parent), symbol_(symbol), size_(size), color_(color) {
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
    SymbolPainter::paint(painter, symbol_, rect(), color_);
}
