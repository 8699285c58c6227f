#pragma once

#include <QStringList>
#include <QWidget>

#include <vector>

class QBoxLayout;
class SegmentButton;

/// A choice of one among a few, side by side where they fit, and one below the other where not. Each segment is a radio
/// button; the arrow keys move the choice.
class SegmentedPicker final : public QWidget {
    Q_OBJECT

public:
    /// A picker of `count` segments, the first of them chosen.
    explicit SegmentedPicker(int count, QWidget* parent = nullptr);

    /// Shows `labels`, one for each segment, and chooses the segment at `index`. Emits nothing.
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
    std::vector<SegmentButton*> segments_;
};
