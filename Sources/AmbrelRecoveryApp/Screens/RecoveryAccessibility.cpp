#include "AmbrelRecoveryApp/Screens/RecoveryAccessibility.h"

#include "AmbrelRecoveryApp/Controls/Announcer.h"
#include "AmbrelRecoveryApp/Controls/ProgressIndicator.h"
#include "AmbrelRecoveryApp/Controls/ProgressIndicatorAccessible.h"
#include "AmbrelRecoveryApp/Controls/SecureField.h"
#include "AmbrelRecoveryApp/Controls/SecureFieldAccessible.h"
#include "AmbrelRecoveryApp/Controls/SegmentedPicker.h"
#include "AmbrelRecoveryApp/Foundation/MainThread.h"
#include "AmbrelRecoveryApp/Screens/ErrorAlert.h"
#include "AmbrelRecoveryApp/Screens/RailStep.h"
#include "AmbrelRecoveryApp/Screens/RailStepList.h"
#include "AmbrelRecoveryApp/Screens/RecoveryWindow.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotList.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotListAccessible.h"

#include <QAccessibleWidget>

namespace {

/// A modal alert, named by its title.
class ErrorAlertAccessible final : public QAccessibleWidget {
public:
    explicit ErrorAlertAccessible(ErrorAlert* alert) : QAccessibleWidget(alert, QAccessible::AlertMessage) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = true;
        return state;
    }
};

/// A list item that is selected while it is the current step. Once the step is completed, it is checked and described
/// as completed.
class RailStepAccessible final : public QAccessibleWidget {
public:
    explicit RailStepAccessible(RailStep* step) : QAccessibleWidget(step, QAccessible::ListItem) {}

    QAccessible::State state() const override {
        const JourneyRailContent::Step& content = static_cast<RailStep*>(widget())->content();
        QAccessible::State state = QAccessibleWidget::state();
        state.selectable = true;
        state.selected = content.isActive;
        state.checkable = true;
        state.checked = content.isCompleted;
        state.readOnly = true;
        return state;
    }
};

/// Qt takes ownership of the interface.
QAccessibleInterface* make(const QString& /*className*/, QObject* object) {
    if (auto* const field = qobject_cast<SecureField*>(object)) {
        return new SecureFieldAccessible(field);
    }
    if (auto* const indicator = qobject_cast<ProgressIndicator*>(object)) {
        return new ProgressIndicatorAccessible(indicator);
    }
    if (auto* const picker = qobject_cast<SegmentedPicker*>(object)) {
        return new QAccessibleWidget(picker, QAccessible::Grouping);
    }
    if (auto* const list = qobject_cast<SnapshotList*>(object)) {
        return new SnapshotListAccessible(list);
    }
    if (auto* const steps = qobject_cast<RailStepList*>(object)) {
        return new QAccessibleWidget(steps, QAccessible::List);
    }
    if (auto* const step = qobject_cast<RailStep*>(object)) {
        return new RailStepAccessible(step);
    }
    if (auto* const alert = qobject_cast<ErrorAlert*>(object)) {
        return new ErrorAlertAccessible(alert);
    }
    if (auto* const window = qobject_cast<RecoveryWindow*>(object)) {
        return new QAccessibleWidget(window, QAccessible::Window);
    }
    if (auto* const announcer = qobject_cast<Announcer*>(object)) {
        return new QAccessibleWidget(announcer, QAccessible::Notification);
    }
    return nullptr;
}

} // namespace

void RecoveryAccessibility::install() {
    MainThread::require();
    // Qt ignores a factory that is already installed.
    QAccessible::installFactory(make);
}
