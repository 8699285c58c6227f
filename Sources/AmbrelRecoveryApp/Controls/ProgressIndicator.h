#pragma once

#include <QBasicTimer>
#include <QVariantAnimation>
#include <QWidget>

#include <optional>

/// Shows progress: a bar of fixed width if the fraction is known, otherwise a small spinning ring.
class ProgressIndicator final : public QWidget {
    Q_OBJECT

public:
    explicit ProgressIndicator(QWidget* parent = nullptr);

    /// Sets the progress, 0 to 1, or std::nullopt if unknown. Values out of range are drawn as the nearer end. The bar
    /// moves smoothly to a new fraction.
    void setFraction(const std::optional<double>& fraction);
    const std::optional<double>& fraction() const { return fraction_; }

    QSize sizeHint() const override;

protected:
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void turnOrRest();
    void glideTo(double fraction);
    void paintBar(QPainter& painter, double drawnFraction) const;
    void paintRing(QPainter& painter) const;

    std::optional<double> fraction_;
    QVariantAnimation gliding_;
    QBasicTimer timer_;
    int degrees_ = 0;
};
