#pragma once

#include <QPixmap>
#include <QVariantAnimation>
#include <QWidget>

/// The short fade from one screen to the next: the picture of the earlier one lies over the new one and goes. The new
/// screen can be used at once. Main thread.
class ScreenTransition final : public QWidget {
    Q_OBJECT

public:
    explicit ScreenTransition(QWidget* parent);

    /// Keeps what the parent shows inside `area` now and lets it fade; to be called before the parent changes. Does
    /// nothing where no motion is wanted or the parent is not in sight.
    void begin(const QRect& area);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void end();

    QPixmap earlier_;
    QVariantAnimation fading_;
};
