#pragma once

#include <QWidget>

#include <vector>

class QPushButton;

/// Buttons side by side, or one below the other if they do not fit.
class ButtonRow final : public QWidget {
    Q_OBJECT

public:
    /// Takes ownership of the buttons, which are in reading order.
    explicit ButtonRow(std::vector<QPushButton*> buttons, QWidget* parent = nullptr);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void place();
    int widthSideBySide() const;

    const std::vector<QPushButton*> buttons_;
};
