#include "AmbrelRecoveryApp/Screens/MainContent.h"

#include "AmbrelRecoveryApp/Controls/QuietScrollBar.h"
#include "AmbrelRecoveryApp/Controls/ShownPart.h"
#include "AmbrelRecoveryApp/Screens/ChooseBackupScreen.h"
#include "AmbrelRecoveryApp/Screens/CompletionScreen.h"
#include "AmbrelRecoveryApp/Screens/HeaderView.h"
#include "AmbrelRecoveryApp/Screens/SnapshotsScreen.h"
#include "AmbrelRecoveryApp/Screens/TrailingInset.h"

#include <QHBoxLayout>

namespace {

constexpr int topPadding = 46;
constexpr int bottomPadding = 28;
constexpr int sidePadding = 52;

} // namespace

MainContent::MainContent(QWidget* parent)
    : QScrollArea(parent), column_(new QWidget), lines_(new QVBoxLayout), header_(new HeaderView(column_)),
      chooseBackup_(new ChooseBackupScreen(column_)) {
    // Before it has a layout: the scroll area asks a widget that it is given for its size, and no text is there yet.
    setWidget(column_);

    lines_->setSpacing(23);
    lines_->addLayout(withTrailingInset(header_));
    lines_->addWidget(chooseBackup_, 1);
    screens_.push_back(chooseBackup_);

    auto* const row = new QHBoxLayout(column_);
    row->setContentsMargins(0, topPadding, 0, bottomPadding);
    row->setSpacing(0);
    row->addSpacing(sidePadding);
    row->addLayout(lines_, 1);
    // The two scroll bars stand in the padding.
    row->addSpacing(sidePadding - 2 * QuietScrollBar::thickness);

    column_->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setVerticalScrollBar(new QuietScrollBar(this));
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

SnapshotsScreen* MainContent::addSnapshots() {
    snapshots_ = new SnapshotsScreen(column_);
    addScreen(snapshots_);
    return snapshots_;
}

CompletionScreen* MainContent::addCompletion() {
    completion_ = new CompletionScreen(column_);
    addScreen(completion_);
    return completion_;
}

void MainContent::addScreen(QWidget* screen) {
    // Before it is in the layout, which shows what nobody has hidden.
    ShownPart::setShown(screen, false);
    lines_->addWidget(screen, 1);
    screens_.push_back(screen);
}

void MainContent::showScreen(QWidget* screen) {
    if (!screen->isHidden()) {
        return;
    }
    for (QWidget* const other : screens_) {
        ShownPart::setShown(other, other == screen);
    }
    verticalScrollBar()->setValue(0);
}
