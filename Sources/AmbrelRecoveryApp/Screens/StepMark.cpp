#include "AmbrelRecoveryApp/Screens/StepMark.h"

#include "AmbrelRecoveryApp/Controls/CenteredText.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"

#include <QPainter>

namespace {

constexpr int circleSize = 26;
constexpr int contentSize = 10;
constexpr double fillOpacity = 0.18;

} // namespace

StepMark::StepMark(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setFont(recoveryFont(contentSize, QFont::Bold));
    const int size = TextScale::scaled(circleSize);
    setFixedSize(size, size);
}

void StepMark::apply(const QString& number, bool isActive, bool isCompleted) {
    setText(isCompleted ? QString() : number);
    isActive_ = isActive;
    isCompleted_ = isCompleted;
    update();
}

void StepMark::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isLit = isActive_ || isCompleted_;
    const QColor color = isLit ? RecoveryPalette::copper() : RecoveryPalette::muted();
    const QRectF circle = rect();
    painter.setPen(color);
    painter.setBrush(isLit ? QBrush(RecoveryPalette::withOpacity(color, fillOpacity)) : Qt::NoBrush);
    painter.drawEllipse(circle.adjusted(0.5, 0.5, -0.5, -0.5));
    if (isCompleted_) {
        const int symbolSize = font().pixelSize();
        QRectF symbol(0, 0, symbolSize, symbolSize);
        symbol.moveCenter(circle.center());
        SymbolPainter::paint(painter, RecoverySymbol::checkmark, symbol, color, QFont::Bold);
    } else {
        painter.setPen(isLit ? RecoveryPalette::primary() : color);
        CenteredText::paint(painter, circle, text());
    }
}
