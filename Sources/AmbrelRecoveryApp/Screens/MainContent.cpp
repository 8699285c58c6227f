#include "AmbrelRecoveryApp/Screens/MainContent.h"

#include "AmbrelRecoveryApp/Controls/QuietScrollBar.h"
#include "AmbrelRecoveryApp/Controls/ShownPart.h"
#include "AmbrelRecoveryApp/Screens/ChooseBackupScreen.h"
#include "AmbrelRecoveryApp/Screens/CompletionScreen.h"
#include "AmbrelRecoveryApp/Screens/HeaderView.h"
#include "AmbrelRecoveryApp/Screens/SnapshotsScreen.h"
#include "AmbrelRecoveryApp/Screens/TrailingInset.h"

#include <QHBoxLayout>

#include <initializer_list>

namespace {

constexpr int topPadding = 46;
constexpr int bottomPadding = 28;
constexpr int sidePadding = 52;

} // namespace

MainContent::MainContent(QWidget* parent)
    : QScrollArea(parent), column_(new QWidget), header_(new HeaderView(column_)),
      chooseBackup_(new ChooseBackupScreen(column_)), snapshots_(new SnapshotsScreen(column_)),
      completion_(new CompletionScreen(column_)) {
    // Before the column has a layout: the scroll area queries the size of its widget, and there is no text yet.
    setWidget(column_);

    auto* const lines = new QVBoxLayout;
    lines->setSpacing(23);
    lines->addLayout(withTrailingInset(header_));
    for (QWidget* const screen : std::initializer_list<QWidget*>{chooseBackup_, snapshots_, completion_}) {
        // Before it is added to the layout, which shows every widget that is not explicitly hidden.
        ShownPart::setShown(screen, screen == chooseBackup_);
        lines->addWidget(screen, 1);
    }

    auto* const row = new QHBoxLayout(column_);
    row->setContentsMargins(0, topPadding, 0, bottomPadding);
    row->setSpacing(0);
    row->addSpacing(sidePadding);
    row->addLayout(lines, 1);
    // The two scroll bars are inside the padding.
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

void MainContent::showScreen(QWidget* screen) {
    if (!screen->isHidden()) {
        return;
    }
    for (QWidget* const other : std::initializer_list<QWidget*>{chooseBackup_, snapshots_, completion_}) {
        ShownPart::setShown(other, other == screen);
    }
    verticalScrollBar()->setValue(0);
}
