#include "AmbrelRecoveryApp/Controls/ProgressIndicator.h"

#include "AmbrelRecoveryApp/Controls/Motion.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"

#include <QAccessible>
#include <QAccessibleValueChangeEvent>
#include <QPainter>

#include <chrono>

namespace {

constexpr QSize barSize(180, 18);
/// Leaves more room for the text beside it.
constexpr QSize barSizeBesideLargeText(90, 18);
constexpr qreal barHeight = 6;
constexpr QSize ringSize(18, 18);
constexpr qreal ringThickness = 2;
constexpr int arcDegrees = 90;
constexpr std::chrono::milliseconds turnInterval(40);
constexpr int turnDegrees = 18;

} // namespace

ProgressIndicator::ProgressIndicator(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    turning_.setInterval(turnInterval);
    connect(&turning_, &QTimer::timeout, this, [this] {
        degrees_ = (degrees_ + turnDegrees) % 360;
        update();
    });
}

void ProgressIndicator::setFraction(const std::optional<double>& fraction) {
    if (fraction_ == fraction) {
        return;
    }
    const bool changesShape = fraction_.has_value() != fraction.has_value();
    fraction_ = fraction;
    if (changesShape) {
        updateGeometry();
        turnOrRest();
    }
    update();
    if (fraction_) {
        QAccessibleValueChangeEvent event(this, *fraction_);
        QAccessible::updateAccessibility(&event);
    }
}

QSize ProgressIndicator::sizeHint() const {
    if (!fraction_) {
        return ringSize;
    }
    return TextScale::isEnlarged() ? barSizeBesideLargeText : barSize;
}

void ProgressIndicator::turnOrRest() {
    const bool mayMove = Motion::duration(*this) > std::chrono::milliseconds::zero();
    if (isVisible() && !fraction_ && mayMove) {
        turning_.start();
    } else {
        turning_.stop();
    }
}

void ProgressIndicator::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    turnOrRest();
}

void ProgressIndicator::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    turnOrRest();
}

void ProgressIndicator::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (fraction_) {
        paintBar(painter, *fraction_);
    } else {
        paintRing(painter);
    }
}

void ProgressIndicator::paintBar(QPainter& painter, double fraction) const {
    const QRectF track(0, (height() - barHeight) / 2, width(), barHeight);
    painter.setPen(Qt::NoPen);
    painter.setBrush(RecoveryPalette::highlight());
    painter.drawRoundedRect(track, barHeight / 2, barHeight / 2);
    QRectF filled = track;
    filled.setWidth(track.width() * fraction);
    if (layoutDirection() == Qt::RightToLeft) {
        filled.moveRight(track.right());
    }
    painter.setClipRect(filled);
    painter.setBrush(RecoveryPalette::copper());
    painter.drawRoundedRect(track, barHeight / 2, barHeight / 2);
}

void ProgressIndicator::paintRing(QPainter& painter) const {
    constexpr int unitsPerDegree = 16;
    QRectF ring(0, 0, ringSize.width(), ringSize.height());
    ring.moveCenter(QRectF(rect()).center());
    ring.adjust(ringThickness / 2, ringThickness / 2, -ringThickness / 2, -ringThickness / 2);
    painter.setPen(QPen(RecoveryPalette::highlight(), ringThickness));
    painter.drawEllipse(ring);
    painter.setPen(QPen(RecoveryPalette::copper(), ringThickness, Qt::SolidLine, Qt::FlatCap));
    painter.drawArc(ring, (90 + arcDegrees / 2 - degrees_) * unitsPerDegree, -arcDegrees * unitsPerDegree);
}
