#include "AmbrelRecoveryApp/Screens/RailStepAccessible.h"

#include "AmbrelRecoveryApp/Screens/RailStep.h"

RailStepAccessible::RailStepAccessible(RailStep* step) : QAccessibleWidget(step, QAccessible::Grouping) {}

QAccessible::State RailStepAccessible::state() const {
    const JourneyRailContent::Step& content = static_cast<RailStep*>(widget())->content();
    QAccessible::State state = QAccessibleWidget::state();
    state.selected = content.isActive;
    state.checked = content.isCompleted;
    state.readOnly = true;
    return state;
}
