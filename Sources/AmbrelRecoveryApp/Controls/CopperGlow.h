#pragma once

#include <QPixmap>

class QPainter;
class QSize;

/// The soft copper light in the top trailing corner of the window. It is drawn once for each scale and direction and
/// copied from then on.
class CopperGlow {
public:
    /// Draws the glow into a window of `size`.
    void paint(QPainter& painter, const QSize& size, Qt::LayoutDirection direction);

private:
    QPixmap pixmap_;
    Qt::LayoutDirection direction_ = Qt::LayoutDirectionAuto;
};
