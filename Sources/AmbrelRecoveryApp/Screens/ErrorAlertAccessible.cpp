#include "AmbrelRecoveryApp/Screens/ErrorAlertAccessible.h"

#include "AmbrelRecoveryApp/Screens/ErrorAlertDialog.h"

ErrorAlertAccessible::ErrorAlertAccessible(ErrorAlertDialog* dialog)
    : QAccessibleWidget(dialog, QAccessible::AlertMessage) {}

QAccessible::State ErrorAlertAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.modal = true;
    return state;
}
