#include "AmbrelRecoveryApp/Controls/ScreenTransition.h"

#include "AmbrelRecoveryApp/Controls/Motion.h"

#include <QPainter>

ScreenTransition::ScreenTransition(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
    fading_.setStartValue(1.0);
    fading_.setEndValue(0.0);
    fading_.setEasingCurve(QEasingCurve::OutCubic);
    connect(&fading_, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    connect(&fading_, &QVariantAnimation::finished, this, &ScreenTransition::end);
}

void ScreenTransition::begin(const QRect& area) {
    const std::chrono::milliseconds duration = Motion::duration(*this);
    if (!parentWidget()->isVisible() || duration <= std::chrono::milliseconds::zero()) {
        return;
    }
    end();
    earlier_ = parentWidget()->grab(area);
    setGeometry(area);
    raise();
    show();
    fading_.setDuration(static_cast<int>(duration.count()));
    fading_.start();
}

void ScreenTransition::end() {
    fading_.stop();
    hide();
    earlier_ = QPixmap();
}

void ScreenTransition::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setOpacity(fading_.currentValue().toDouble());
    painter.drawPixmap(0, 0, earlier_);
}
