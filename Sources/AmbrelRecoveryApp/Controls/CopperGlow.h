#pragma once

#include <QImage>

class QPainter;
class QSize;

/// The soft copper light in the top trailing corner of the window. It is drawn once for each direction, small, and
/// stretched from then on: it has no edges that could blur.
class CopperGlow {
public:
    /// Draws the glow into a window of `size`.
    void paint(QPainter& painter, const QSize& size, Qt::LayoutDirection direction);

private:
    QImage image_;
    Qt::LayoutDirection direction_ = Qt::LayoutDirectionAuto;
};
