#pragma once

#include <QAccessibleWidget>

class RailStep;

/// A step of the rail as assistive technology meets it: an item of a list, selected while it is the step that is shown,
/// and checked and described so once it is completed.
class RailStepAccessible final : public QAccessibleWidget {
public:
    explicit RailStepAccessible(RailStep* step);

    QAccessible::State state() const override;
};
