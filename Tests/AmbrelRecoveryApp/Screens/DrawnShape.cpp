#include "DrawnShape.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int magnification = 16;
constexpr int halfOpaque = 128;

QImage imageOf(const QSize& size) {
    QImage image(size * magnification, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(magnification);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

DrawnShape::DrawnShape(QWidget& widget) : image_(imageOf(widget.size())) {
    widget.render(&image_, QPoint(), QRegion(), QWidget::RenderFlags());
}

DrawnShape::DrawnShape(const QSize& size, const std::function<void(QPainter&)>& paint) : image_(imageOf(size)) {
    QPainter painter(&image_);
    paint(painter);
}

double DrawnShape::opacityAt(const QPointF& point) const {
    return image_.pixelColor((point * magnification).toPoint()).alphaF();
}

double DrawnShape::highestOpacity() const {
    int highest = 0;
    for (int y = 0; y < image_.height(); ++y) {
        for (int x = 0; x < image_.width(); ++x) {
            highest = std::max(highest, qAlpha(image_.pixel(x, y)));
        }
    }
    return highest / 255.0;
}

double DrawnShape::cornerRadius() const {
    int step = 0;
    while (step < image_.width() && qAlpha(image_.pixel(step, step)) == 0) {
        ++step;
    }
    // How far a circle stays behind the corner of its square, in each direction.
    const double behind = 1 - 1 / std::sqrt(2.0);
    return static_cast<double>(step) / magnification / behind;
}

double DrawnShape::extent(const QRectF& area) const {
    QRect drawn;
    const QRect pixels = QRectF(area.topLeft() * magnification, area.size() * magnification).toRect();
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
        for (int x = pixels.left(); x <= pixels.right(); ++x) {
            if (qAlpha(image_.pixel(x, y)) >= halfOpaque) {
                drawn |= QRect(x, y, 1, 1);
            }
        }
    }
    return static_cast<double>(std::max(drawn.width(), drawn.height())) / magnification;
}
