#pragma once

#include <QScrollBar>

/// A vertical scroll bar that always takes up its space but is visible only if there is something to scroll, so that
/// the content beside it never moves.
class QuietScrollBar final : public QScrollBar {
    Q_OBJECT

public:
    static constexpr int thickness = 10;

    explicit QuietScrollBar(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};
