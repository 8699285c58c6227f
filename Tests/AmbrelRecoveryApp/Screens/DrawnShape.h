#pragma once

#include <QImage>
#include <QWidget>

#include <functional>

/// What was really drawn, seen through a magnifying glass: sixteen pixels for each device-independent one, on nothing.
class DrawnShape {
public:
    /// Draws `widget` without its children.
    explicit DrawnShape(QWidget& widget);
    /// Draws with `paint`, in an area of `size`.
    DrawnShape(const QSize& size, const std::function<void(QPainter&)>& paint);

    /// The opacity at a point, 0 to 1.
    double opacityAt(const QPointF& point) const;

    /// The highest opacity anywhere.
    double highestOpacity() const;

    /// The radius of the corner that is nearest to the origin, in device-independent pixels.
    double cornerRadius() const;

    /// The longer side of what is more than half opaque within `area`.
    double extent(const QRectF& area) const;

private:
    QImage image_;
};
