#include "AmbrelRecoveryApp/Controls/CopperGlow.h"

#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"

#include <QPainter>
#include <QRadialGradient>

#include <cmath>

namespace {

constexpr double opacity = 0.12;
/// The center of the blurred circle, measured from the top trailing corner of the window.
constexpr int centerInset = 105;
constexpr int centerTop = 63;
/// The distance at which the glow has fallen to half, and the standard deviation of the blur.
constexpr double radius = 268;
constexpr double blur = 82.6;
/// Beyond this distance, the glow is weaker than one step of a color.
constexpr int reach = 447;
constexpr QSize area(centerInset + reach, centerTop + reach);
/// The device-independent pixels of the window per pixel of the rendered image, in each direction.
constexpr int stretch = 3;
static_assert(area.width() % stretch == 0 && area.height() % stretch == 0);

/// A circle's edge after a Gaussian blur.
double strengthAt(double distance) {
    return 0.5 * std::erfc((distance - radius) / (blur * std::sqrt(2)));
}

QImage draw(Qt::LayoutDirection direction) {
    constexpr int stops = 40;
    const double centerX = direction == Qt::RightToLeft ? centerInset : area.width() - centerInset;
    QRadialGradient gradient(centerX, centerTop, reach);
    for (int stop = 0; stop <= stops; ++stop) {
        const double position = static_cast<double>(stop) / stops;
        gradient.setColorAt(
            position, RecoveryPalette::withOpacity(RecoveryPalette::copper(), opacity * strengthAt(position * reach)));
    }
    QImage image(area / stretch, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.scale(1.0 / stretch, 1.0 / stretch);
    painter.fillRect(QRect(QPoint(0, 0), area), gradient);
    return image;
}

} // namespace

void CopperGlow::paint(QPainter& painter, const QSize& size, Qt::LayoutDirection direction) {
    if (direction_ != direction) {
        image_ = draw(direction);
        direction_ = direction;
    }
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRect(QPoint(direction == Qt::RightToLeft ? 0 : size.width() - area.width(), 0), area), image_);
    painter.restore();
}
