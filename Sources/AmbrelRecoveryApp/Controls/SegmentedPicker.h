#pragma once

#include <QList>
#include <QStringList>
#include <QWidget>

class QBoxLayout;
class SegmentButton;

/// A choice of one among a few segments, side by side if they fit, otherwise one below the other. Each segment is a
/// radio button; the arrow keys move the selection.
class SegmentedPicker final : public QWidget {
    Q_OBJECT

public:
    /// Creates `count` segments.
    explicit SegmentedPicker(int count, QWidget* parent = nullptr);

    /// Shows `labels`, one for each segment, and selects the segment at `index`. Emits nothing.
    void apply(const QStringList& labels, int index);

    QSize minimumSizeHint() const override;

signals:
    /// The user chose the segment at `index`.
    void chosen(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrange();

    QBoxLayout* const layout_;
    QList<SegmentButton*> segments_;
};
