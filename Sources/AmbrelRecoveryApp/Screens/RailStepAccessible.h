#pragma once

#include <QAccessibleWidget>

class RailStep;

/// The accessible interface of a step in the rail: a list item that is selected while it is the current step. Once the
/// step is completed, it is checked and described as completed.
class RailStepAccessible final : public QAccessibleWidget {
public:
    explicit RailStepAccessible(RailStep* step);

    QAccessible::State state() const override;
};
