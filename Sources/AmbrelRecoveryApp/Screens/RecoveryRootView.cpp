#include "AmbrelRecoveryApp/Screens/RecoveryRootView.h"

#include "AmbrelRecoveryApp/Controls/Announcer.h"
#include "AmbrelRecoveryApp/Controls/HeldKeys.h"
#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/ProgressRow.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/ReturnKey.h"
#include "AmbrelRecoveryApp/Controls/ScreenTransition.h"
#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/SecureField.h"
#include "AmbrelRecoveryApp/Controls/SegmentedPicker.h"
#include "AmbrelRecoveryApp/Foundation/InterfaceDirection.h"
#include "AmbrelRecoveryApp/Screens/ChooseBackupScreen.h"
#include "AmbrelRecoveryApp/Screens/CompletionScreen.h"
#include "AmbrelRecoveryApp/Screens/DropArea.h"
#include "AmbrelRecoveryApp/Screens/ErrorAlert.h"
#include "AmbrelRecoveryApp/Screens/HeaderView.h"
#include "AmbrelRecoveryApp/Screens/InterfaceFont.h"
#include "AmbrelRecoveryApp/Screens/JourneyRail.h"
#include "AmbrelRecoveryApp/Screens/MainContent.h"
#include "AmbrelRecoveryApp/Screens/RecoveryAccessibility.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotList.h"
#include "AmbrelRecoveryApp/Screens/SnapshotsScreen.h"
#include "AmbrelRecoveryApp/Screens/StepAnnouncement.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>

#include <utility>

RecoveryRootView::RecoveryRootView(RecoveryViewModel& model, QWidget* parent)
    : QWidget(parent), model_(model), state_(RecoveryScreenState::of(model, nullptr)) {
    RecoveryAccessibility::install();
    new HeldKeys(this);
    // Before the widgets are created, which would otherwise have to change their font later.
    applyInterfaceFont();
    setPalette(RecoveryPalette::ofToolkit());
    rail_ = new JourneyRail(this);
    content_ = new MainContent(this);
    transition_ = new ScreenTransition(this);
    announcer_ = new Announcer(this);
    dropArea_ = new DropArea(this);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(rail_);
    layout->addWidget(content_, 1);
    connectButtons();
    connectControls();
    connect(&model_, &RecoveryViewModel::aboutToChange, this, &RecoveryRootView::scheduleRedraw);
    applyContents();
    nextFocus_ = widgetOf(FocusPlan::first(state_));
}

void RecoveryRootView::connectButtons() {
    const ChooseBackupScreen& choose = *content_->chooseBackup();
    const SnapshotsScreen& snapshots = *content_->snapshots();
    const CompletionScreen& completion = *content_->completion();
    connect(choose.chooseButton(), &QPushButton::clicked, &model_, &RecoveryViewModel::chooseBackup);
    connect(choose.inspectButton(), &QPushButton::clicked, this, &RecoveryRootView::inspect);
    connect(snapshots.exportButton(), &QPushButton::clicked, &model_, &RecoveryViewModel::chooseDestinationAndExport);
    connect(snapshots.chooseAnotherButton(), &QPushButton::clicked, &model_, &RecoveryViewModel::startAgain);
    connect(completion.revealButton(), &QPushButton::clicked, &model_, &RecoveryViewModel::openRecoveredFolder);
    connect(completion.chooseAnotherButton(), &QPushButton::clicked, &model_, &RecoveryViewModel::startAgain);
    for (const ProgressRow* const operation : content_->findChildren<ProgressRow*>()) {
        connect(operation, &ProgressRow::cancelled, &model_, &RecoveryViewModel::cancelOperation);
    }
}

void RecoveryRootView::connectControls() {
    const ChooseBackupScreen* const choose = content_->chooseBackup();
    connect(choose->factorPicker(), &SegmentedPicker::chosen, &model_,
            [this](int index) { model_.setFactor(allRecoveryAppFactors.at(static_cast<std::size_t>(index))); });
    connect(choose->secretField(), &SecureField::secretEdited, &model_,
            [this, choose] { model_.setCredential(SecretText(choose->secretField()->secret())); });
    connect(content_->snapshots()->list(), &SnapshotList::chosen, &model_, [this](int row) {
        model_.setSelectedSnapshotCode(state_.snapshots->at(static_cast<std::size_t>(row)).selectionCode);
    });
    connect(dropArea_, &DropArea::dropped, &model_, &RecoveryViewModel::acceptPackage);
}

QWidget* RecoveryRootView::screenOfThePhase() const {
    using Phase = RecoveryScreenState::Phase;
    switch (state_.phase) {
    case Phase::chooseBackup:
    case Phase::preparingPackage:
    case Phase::inspecting:
        return content_->chooseBackup();
    case Phase::snapshots:
    case Phase::exporting:
        return content_->snapshots();
    case Phase::complete:
        return content_->completion();
    }
    Q_UNREACHABLE();
}

void RecoveryRootView::inspect() {
    model_.inspectBackup();
    // At once: what is typed before the next iteration of the event loop must not go into the field.
    redraw();
}

void RecoveryRootView::scheduleRedraw() {
    if (!std::exchange(isRedrawScheduled_, true)) {
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (isRedrawScheduled_) {
                    redraw();
                }
            },
            Qt::QueuedConnection);
    }
}

void RecoveryRootView::redraw() {
    isRedrawScheduled_ = false;
    const RecoveryScreenState before = std::exchange(state_, RecoveryScreenState::of(model_, state_.snapshots));
    const bool hadAlert = before.presentedError.has_value();
    if (state_.presentedError && !hadAlert) {
        nextFocus_ = focusWidget();
    }
    const std::optional<FocusPlan::Target> target = FocusPlan::target(before, state_);
    applyContents();
    if (target) {
        nextFocus_ = widgetOf(*target);
    }
    if ((target || hadAlert) && !state_.presentedError) {
        moveFocus();
    }
    announceStep(before);
}

/// Called after the focus has moved, because that would interrupt the announcement.
void RecoveryRootView::announceStep(const RecoveryScreenState& before) {
    if (const std::optional<QString> announcement = stepAnnouncement(before, state_)) {
        announcer_->announce(*announcement);
    } else if (before.phase != state_.phase || (before.presentedError && !state_.presentedError)) {
        announcer_->withdraw();
    }
}

void RecoveryRootView::applyContents() {
    QWidget* const screen = screenOfThePhase();
    if (screen->isHidden()) {
        transition_->begin(content_->geometry());
    }
    applyInterfaceFont();
    setLayoutDirection(interfaceDirection());
    rail_->apply(journeyRailContent(state_));
    content_->header()->apply(headerContent());
    applyScreens();
    content_->showScreen(screen);
    applyCredential();
    applyAlert();
    dropArea_->setAccepting(!state_.isBusy() && !state_.presentedError);
}

/// Includes hidden screens, so that they release what the model no longer holds.
void RecoveryRootView::applyScreens() {
    content_->chooseBackup()->apply(chooseBackupContent(state_));
    content_->snapshots()->apply(snapshotsContent(state_));
    if (model_.destinationURL() != shownPath_) {
        shownPath_.reset();
    }
    content_->completion()->apply(completionContent(state_));
    content_->completion()->applyPath(shownPath_);
}

void RecoveryRootView::applyAlert() {
    const std::optional<ErrorAlertContent> content = errorAlertContent(state_);
    if (content && alert_ == nullptr) {
        alert_ = new ErrorAlert(this);
        connect(alert_, &ErrorAlert::dismissed, &model_, &RecoveryViewModel::dismissPresentedError);
    }
    if (alert_ != nullptr) {
        alert_->apply(content);
    }
}

void RecoveryRootView::showPath(const std::filesystem::path& folder) {
    if (state_.phase == RecoveryScreenState::Phase::complete && model_.destinationURL() == folder) {
        shownPath_ = folder;
        content_->completion()->applyPath(shownPath_);
        content_->completion()->selectPath();
    }
}

void RecoveryRootView::applyCredential() {
    SecureField* const field = content_->chooseBackup()->secretField();
    if (field->secret() != model_.credential().view()) {
        field->setSecret(model_.credential().view());
    }
}

QWidget* RecoveryRootView::widgetOf(FocusPlan::Target target) const {
    using Target = FocusPlan::Target;
    switch (target) {
    case Target::chooseButton:
        return content_->chooseBackup()->chooseButton();
    case Target::secretField:
        return content_->chooseBackup()->secretField();
    case Target::cancelButton:
        return state_.phase == RecoveryScreenState::Phase::exporting ? content_->snapshots()->cancelButton()
                                                                     : content_->chooseBackup()->cancelButton();
    case Target::snapshotList:
        return content_->snapshots()->list();
    case Target::exportButton:
        return content_->snapshots()->exportButton();
    case Target::chooseAnotherButton:
        return content_->snapshots()->chooseAnotherButton();
    case Target::revealButton:
        return content_->completion()->revealButton();
    }
    Q_UNREACHABLE();
}

void RecoveryRootView::moveFocus() {
    const auto canHaveFocus = [](const QWidget* widget) {
        return widget != nullptr && widget->isVisible() && widget->isEnabled();
    };
    QWidget* next = std::exchange(nextFocus_, nullptr);
    if (!canHaveFocus(next) && alert_->isAncestorOf(focusWidget())) {
        // The control that had the focus before the alert is disabled now.
        next = widgetOf(FocusPlan::first(state_));
    }
    if (canHaveFocus(next)) {
        next->setFocus();
        content_->ensureWidgetVisible(next);
    }
}

void RecoveryRootView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (state_.presentedError) {
        alert_->takeFocus();
        if (!event->spontaneous()) {
            // No redraw has announced an error from before the window was shown.
            RecoveryScreenState before = state_;
            before.presentedError.reset();
            announceStep(before);
        }
    } else {
        moveFocus();
    }
}

void RecoveryRootView::keyPressEvent(QKeyEvent* event) {
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const bool isForTheScreen = isPlain && !state_.presentedError;
    if (isForTheScreen && isReturnKey(*event)) {
        pressMainButton();
    } else if (isForTheScreen && event->key() == Qt::Key_Escape && model_.isBusy()) {
        model_.cancelOperation();
    } else {
        QWidget::keyPressEvent(event);
    }
}

/// Each screen has one button of the kind for its main action. click() does nothing if it is disabled.
void RecoveryRootView::pressMainButton() {
    screenOfThePhase()->findChild<PrimaryRecoveryButton*>()->click();
}

void RecoveryRootView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), RecoveryPalette::background());
    glow_.paint(painter, size(), layoutDirection());
}
