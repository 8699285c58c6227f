#pragma once

#include <QBasicTimer>
#include <QVariantAnimation>
#include <QWidget>

#include <optional>

/// How far something is: a bar of fixed width where a fraction is known, else a small ring that turns.
class ProgressIndicator final : public QWidget {
    Q_OBJECT

public:
    explicit ProgressIndicator(QWidget* parent = nullptr);

    /// 0 to 1; what lies outside is drawn as the nearer end. The bar glides to a new fraction.
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
