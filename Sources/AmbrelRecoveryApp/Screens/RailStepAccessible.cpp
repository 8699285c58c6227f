#include "AmbrelRecoveryApp/Screens/RailStepAccessible.h"

#include "AmbrelRecoveryApp/Screens/RailStep.h"

RailStepAccessible::RailStepAccessible(RailStep* step) : QAccessibleWidget(step, QAccessible::ListItem) {}

QAccessible::State RailStepAccessible::state() const {
    const JourneyRailContent::Step& content = static_cast<RailStep*>(widget())->content();
    QAccessible::State state = QAccessibleWidget::state();
    state.selectable = true;
    state.selected = content.isActive;
    state.checkable = true;
    state.checked = content.isCompleted;
    state.readOnly = true;
    return state;
}
