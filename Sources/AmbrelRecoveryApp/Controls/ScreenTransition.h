#pragma once

#include <QPixmap>
#include <QVariantAnimation>
#include <QWidget>

/// The short fade from one screen to the next: an image of the previous screen lies over the new one and fades out. The
/// new screen can be used at once. Main thread.
class ScreenTransition final : public QWidget {
    Q_OBJECT

public:
    explicit ScreenTransition(QWidget* parent);

    /// Captures what the parent shows inside `area` and starts to fade it out. Call before the parent changes. Does
    /// nothing if animations are off or the parent is not visible.
    void begin(const QRect& area);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void end();

    QPixmap earlier_;
    QVariantAnimation fading_;
};
