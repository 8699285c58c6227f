#pragma once

#include <QScrollBar>

/// A vertical scroll bar that always has its place and is seen only where there is something to scroll, so that what
/// lies beside it never moves.
class QuietScrollBar final : public QScrollBar {
    Q_OBJECT

public:
    static constexpr int thickness = 10;

    explicit QuietScrollBar(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};
