#pragma once

#include <QRadioButton>

/// One segment of a segmented picker: a radio button without its indicator. Return does not press it.
class SegmentButton final : public QRadioButton {
    Q_OBJECT

public:
    explicit SegmentButton(QWidget* parent = nullptr);

    /// Sets the visible text, which is also the accessible name.
    void setLabel(const QString& label);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};
