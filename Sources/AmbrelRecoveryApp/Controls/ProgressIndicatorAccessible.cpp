#include "AmbrelRecoveryApp/Controls/ProgressIndicatorAccessible.h"

#include "AmbrelRecoveryApp/Controls/ProgressIndicator.h"

ProgressIndicatorAccessible::ProgressIndicatorAccessible(ProgressIndicator* indicator)
    : QAccessibleWidget(indicator, QAccessible::ProgressBar) {}

ProgressIndicator& ProgressIndicatorAccessible::indicator() const {
    return *static_cast<ProgressIndicator*>(widget());
}

void* ProgressIndicatorAccessible::interface_cast(QAccessible::InterfaceType type) {
    // Without a known fraction there is no value to report.
    if (type == QAccessible::ValueInterface && indicator().fraction()) {
        return static_cast<QAccessibleValueInterface*>(this);
    }
    return QAccessibleWidget::interface_cast(type);
}

QAccessible::State ProgressIndicatorAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    state.busy = !indicator().fraction();
    return state;
}

QVariant ProgressIndicatorAccessible::currentValue() const {
    return indicator().fraction().value_or(0);
}
