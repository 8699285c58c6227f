#pragma once

#include <QImage>

class QPainter;
class QSize;

/// The soft copper glow in the top trailing corner of the window. It is rendered at a small size when the direction
/// changes, and stretched: it has no edges that could blur.
class CopperGlow {
public:
    /// Draws the glow into a window of `size`.
    void paint(QPainter& painter, const QSize& size, Qt::LayoutDirection direction);

private:
    QImage image_;
    Qt::LayoutDirection direction_ = Qt::LayoutDirectionAuto;
};
