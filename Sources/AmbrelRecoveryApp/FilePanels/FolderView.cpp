#include "AmbrelRecoveryApp/FilePanels/FolderView.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Controls/FirstChoice.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/ReturnKey.h"
#include "AmbrelRecoveryApp/FilePanels/FolderHeader.h"
#include "AmbrelRecoveryApp/FilePanels/PanelItemView.h"
#include "AmbrelRecoveryApp/FilePanels/PanelRowDelegate.h"
#include "AmbrelRecoveryApp/FilePanels/PanelTexts.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace {

constexpr int textSize = 13;
/// If a folder answers sooner, no message is shown in between.
constexpr std::chrono::milliseconds slownessDelay(300);

} // namespace

FolderView::FolderView(FolderModel& model, QWidget* parent) : QTreeView(parent), model_(model) {
    setFont(recoveryFont(textSize, QFont::Normal));
    setItemDelegate(new PanelRowDelegate(FolderModel::SymbolRole, this));
    setHeader(new FolderHeader(this));
    setModel(&model);
    // Connected after the selection's own handler, which clears the selection.
    connect(&model, &QAbstractItemModel::modelReset, this, &FolderView::handleReset);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    PanelItemView::prepare(*this);
    setSortingEnabled(true);
    sortByColumn(FolderModel::name, Qt::AscendingOrder);
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::Fixed);
    header()->setSectionResizeMode(FolderModel::name, QHeaderView::Stretch);
    slowness_.setSingleShot(true);
    slowness_.setInterval(slownessDelay);
    connect(&slowness_, &QTimer::timeout, this, [this] {
        isSlow_ = true;
        viewport()->update();
    });
    connect(this, &QTreeView::doubleClicked, this, &FolderView::itemActivated);
}

QModelIndex FolderView::selectedItem() const {
    const QModelIndexList rows = selectionModel()->selectedRows(FolderModel::name);
    return rows.isEmpty() ? QModelIndex() : rows.first();
}

void FolderView::keyboardSearch(const QString& search) {
    if (search == u"/" || search == u"~") {
        emit pathTyped(search);
    } else {
        QTreeView::keyboardSearch(search);
    }
}

void FolderView::reset() {
    scrollPlace_ = verticalScrollBar()->value();
    QTreeView::reset();
}

/// Rereading a folder keeps the selection; a selected item that has disappeared is not replaced by the next one.
void FolderView::handleReset() {
    if (model_.state() == FolderModel::State::loading) {
        selectedName_.clear();
        currentName_.clear();
        isSlow_ = false;
        slowness_.start();
    } else {
        slowness_.stop();
        restore();
    }
    setAccessibleDescription(message());
}

void FolderView::restore() {
    const std::string selected = std::exchange(selectedName_, {});
    if (const QModelIndex current = currentName_.empty() ? QModelIndex() : model_.indexOf(currentName_);
        current.isValid()) {
        selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    }
    if (const QModelIndex index = selected.empty() ? QModelIndex() : model_.indexOf(selected); index.isValid()) {
        selectionModel()->select(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(scrollPlace_);
}

QString FolderView::message() const {
    switch (model_.state()) {
    case FolderModel::State::loading:
        return isSlow_ ? PanelTexts::localized(PanelTexts::Text::loading) : QString();
    case FolderModel::State::unreadable:
        return PanelTexts::localized(PanelTexts::Text::folderCannotBeOpened);
    case FolderModel::State::loaded:
        return model_.rowCount() == 0 ? AmbrelStrings::localized(AmbrelStrings::albumsFolderEmptyTitle()) : QString();
    }
    Q_UNREACHABLE();
}

void FolderView::drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    PanelRowDelegate::paintRow(*painter, *this, option.rect, selectionModel()->isRowSelected(index.row()),
                               index.row() == currentIndex().row());
    QTreeView::drawRow(painter, option, index);
}

void FolderView::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = isReturnKey(*event);
    const bool isUp = event->key() == Qt::Key_Up && event->modifiers() == Qt::AltModifier;
    if (isReturn && selectedItem().isValid()) {
        emit itemActivated(selectedItem());
    } else if (isReturn) {
        event->ignore();
    } else if (isUp || event->key() == Qt::Key_Backspace) {
        emit upRequested();
    } else if (!FirstChoice::select(*this, *event)) {
        QTreeView::keyPressEvent(event);
    }
}

void FolderView::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    QPainter painter(viewport());
    painter.setPen(RecoveryPalette::secondary());
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, message());
}

void FolderView::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    for (const auto column : {FolderModel::size, FolderModel::date}) {
        const QString heading = model_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        const int width =
            std::max(model_.widestText(column, fontMetrics()), header()->fontMetrics().horizontalAdvance(heading));
        header()->resizeSection(column, width + FolderHeader::padding);
    }
}

void FolderView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTreeView::selectionChanged(selected, deselected);
    const QModelIndex item = selectedItem();
    selectedName_ = item.isValid() ? model_.item(item).name : std::string();
    currentName_ = selectedName_.empty() ? currentName_ : selectedName_;
    emit itemSelected();
}
