#include "AmbrelRecoveryApp/Controls/CopperGlow.h"

#include "AmbrelRecoveryApp/RecoveryPalette.h"

#include <QPainter>
#include <QRadialGradient>

#include <cmath>

namespace {

constexpr double opacity = 0.12;
/// The centre of the blurred circle, seen from the top trailing corner of the window.
constexpr int centerInset = 105;
constexpr int centerTop = 63;
/// Where the light has fallen to a half, and the standard deviation of the blur.
constexpr double radius = 268;
constexpr double blur = 82.6;
/// Beyond this nothing is left to be seen.
constexpr int reach = 500;
constexpr QSize area(centerInset + reach, centerTop + reach);

/// A circle's edge after a Gaussian blur.
double strengthAt(double distance) {
    return 0.5 * std::erfc((distance - radius) / (blur * std::sqrt(2)));
}

QPixmap draw(qreal scale, Qt::LayoutDirection direction) {
    constexpr int stops = 40;
    const double centerX = direction == Qt::RightToLeft ? centerInset : area.width() - centerInset;
    QRadialGradient gradient(centerX, centerTop, reach);
    for (int stop = 0; stop <= stops; ++stop) {
        const double position = static_cast<double>(stop) / stops;
        gradient.setColorAt(
            position, RecoveryPalette::withOpacity(RecoveryPalette::copper(), opacity * strengthAt(position * reach)));
    }
    QPixmap pixmap(area * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.fillRect(QRect(QPoint(0, 0), area), gradient);
    return pixmap;
}

} // namespace

void CopperGlow::paint(QPainter& painter, const QSize& size, Qt::LayoutDirection direction) {
    const qreal scale = painter.device()->devicePixelRatioF();
    if (direction_ != direction || pixmap_.devicePixelRatio() != scale) {
        pixmap_ = draw(scale, direction);
        direction_ = direction;
    }
    painter.drawPixmap(direction == Qt::RightToLeft ? 0 : size.width() - area.width(), 0, pixmap_);
}
