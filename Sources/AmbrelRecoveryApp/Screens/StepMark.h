#pragma once

#include <QLabel>

/// The circle of a step in the rail: its number, or a checkmark once it is completed.
class StepMark final : public QLabel {
    Q_OBJECT

public:
    explicit StepMark(QWidget* parent = nullptr);

    void apply(const QString& number, bool isActive, bool isCompleted);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool isActive_ = false;
    bool isCompleted_ = false;
};
