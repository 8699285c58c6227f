#include "AmbrelRecoveryApp/Screens/StepMark.h"

#include "AmbrelRecoveryApp/Controls/CenteredText.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"
#include "AmbrelRecoveryApp/RecoveryPalette.h"

#include <QPainter>
#include <QStyle>

namespace {

constexpr int circleSize = 26;
/// The circle stands at the leading edge of a slot that is a little wider.
constexpr int slotWidth = 31;
constexpr int symbolSize = 12;
constexpr double fillOpacity = 0.18;

} // namespace

StepMark::StepMark(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setFont(recoveryFont(10, QFont::Bold));
    setFixedSize(slotWidth, circleSize);
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
    const QRectF circle = QStyle::visualRect(layoutDirection(), rect(), QRect(0, 0, circleSize, circleSize));
    painter.setPen(color);
    painter.setBrush(isLit ? QBrush(RecoveryPalette::withOpacity(color, fillOpacity)) : Qt::NoBrush);
    painter.drawEllipse(circle.adjusted(0.5, 0.5, -0.5, -0.5));
    if (isCompleted_) {
        QRectF symbol(0, 0, symbolSize, symbolSize);
        symbol.moveCenter(circle.center());
        SymbolPainter::paint(painter, RecoverySymbol::checkmark, symbol, color);
    } else {
        CenteredText::paint(painter, circle, text());
    }
}
