#pragma once

#include <QTimer>
#include <QWidget>

#include <optional>

/// Shows progress: a bar of fixed width if the fraction is known, otherwise a small spinning ring.
class ProgressIndicator final : public QWidget {
    Q_OBJECT

public:
    explicit ProgressIndicator(QWidget* parent = nullptr);

    /// Sets the progress, 0 to 1, or std::nullopt if unknown.
    void setFraction(const std::optional<double>& fraction);
    const std::optional<double>& fraction() const { return fraction_; }

    QSize sizeHint() const override;

protected:
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void turnOrRest();
    void paintBar(QPainter& painter, double fraction) const;
    void paintRing(QPainter& painter) const;

    std::optional<double> fraction_;
    QTimer turning_;
    int degrees_ = 0;
};
