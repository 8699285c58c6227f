#include "AmbrelRecoveryApp/Screens/RailStep.h"

#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"
#include "AmbrelRecoveryApp/Screens/StepMark.h"

#include <QAccessible>
#include <QHBoxLayout>

#include <utility>

namespace {

QFont titleFont(bool isActive) {
    return recoveryFont(13, isActive ? QFont::DemiBold : QFont::Normal);
}

} // namespace

RailStep::RailStep(QWidget* parent)
    : QWidget(parent), mark_(new StepMark(this)),
      title_(new TextLabel(titleFont(false), RecoveryPalette::muted(), this)) {
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(5);
    layout->addWidget(mark_, 0, Qt::AlignVCenter);
    layout->addWidget(title_, 1);
}

void RailStep::apply(const JourneyRailContent::Step& content) {
    if (content_ == content) {
        return;
    }
    const JourneyRailContent::Step before = std::exchange(content_, content);
    mark_->apply(content.number, content.isActive, content.isCompleted);
    title_->setFont(titleFont(content.isActive));
    title_->setColor(content.isActive ? RecoveryPalette::primary() : RecoveryPalette::muted());
    title_->setText(content.title);
    setAccessibleName(content.title);
    setAccessibleDescription(content.spokenCheckmark);
    announceChange(before);
}

/// Sent separately, because Qt forwards only one change of an event that has two, and a selection has its own kind of
/// event.
void RailStep::announceChange(const JourneyRailContent::Step& before) {
    if (before.isCompleted != content_.isCompleted) {
        QAccessible::State changed;
        changed.checked = true;
        QAccessibleStateChangeEvent event(this, changed);
        QAccessible::updateAccessibility(&event);
    }
    if (before.isActive != content_.isActive) {
        QAccessibleEvent event(this, content_.isActive ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
        QAccessible::updateAccessibility(&event);
    }
}
