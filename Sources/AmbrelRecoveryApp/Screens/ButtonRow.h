#pragma once

#include <QWidget>

#include <initializer_list>

class QBoxLayout;
class QPushButton;

/// Buttons side by side, or one below the other if they do not fit.
class ButtonRow final : public QWidget {
    Q_OBJECT

public:
    /// Takes ownership of the buttons, which are in reading order.
    explicit ButtonRow(std::initializer_list<QPushButton*> buttons, QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;

private:
    void arrange();

    QBoxLayout* const layout_;
};
