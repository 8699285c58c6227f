#include "AmbrelRecoveryApp/FilePanels/FolderView.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Controls/FirstChoice.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/ReturnKey.h"
#include "AmbrelRecoveryApp/FilePanels/PanelItemView.h"
#include "AmbrelRecoveryApp/Foundation/InterfaceDirection.h"
#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <chrono>

using namespace AmbrelStrings;

namespace {

/// If a folder answers sooner, no message is shown in between.
constexpr std::chrono::milliseconds slownessDelay(300);

} // namespace

FolderView::FolderView(FolderModel& model, QWidget* parent) : QTreeView(parent), model_(model) {
    PanelItemView::prepare(*this);
    setModel(&model);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setSortingEnabled(true);
    sortByColumn(FolderModel::name, Qt::AscendingOrder);
    prepareHeader();
    patience_.setSingleShot(true);
    patience_.setInterval(slownessDelay);
    connect(&patience_, &QTimer::timeout, this, &FolderView::showMessage);
    connect(&model, &QAbstractItemModel::modelReset, &patience_, qOverload<>(&QTimer::start));
    connect(&model, &QAbstractItemModel::modelReset, this, &FolderView::showMessage);
    // Not delayed, as the view does: rows may have gone, and assistive technology may ask for them until then.
    connect(&model, &QAbstractItemModel::layoutChanged, this, &FolderView::executeDelayedItemsLayout);
    connect(&model, &QAbstractItemModel::layoutChanged, this, &FolderView::showMessage);
    connect(this, &QTreeView::doubleClicked, this, &FolderView::itemActivated);
}

void FolderView::prepareHeader() {
    using namespace std::chrono;
    header()->setStyleSheet(QStringLiteral("QHeaderView { background: transparent; }"
                                           "QHeaderView::section { background: transparent; color: %1; border: none;"
                                           " border-bottom: 1px solid %2; padding: 3px 10px; }")
                                .arg(RecoveryPalette::muted().name(), RecoveryPalette::line().name(QColor::HexArgb)));
    // A widget with a style sheet does not inherit colors from its parent.
    header()->setPalette(RecoveryPalette::ofToolkit());
    header()->setFont(recoveryFont(12, QFont::Medium));
    header()->setContextMenuPolicy(Qt::PreventContextMenu);
    header()->setDefaultAlignment(QStyle::visualAlignment(interfaceDirection(), Qt::AlignLeading | Qt::AlignVCenter));
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::Fixed);
    header()->setSectionResizeMode(FolderModel::name, QHeaderView::Stretch);
    const icu::Locale locale = currentFormattingLocale();
    // A size of zero is written as a word.
    fitColumn(FolderModel::size, {formattedFileSize(0, locale), formattedFileSize(888'800'000, locale)});
    constexpr sys_time<milliseconds> wideDate = sys_days(year(2028) / 9 / 28) + hours(20) + minutes(48);
    fitColumn(FolderModel::date, {formattedDateTime(wideDate, locale)});
}

/// Makes `column` as wide as the widest of its heading and `texts`, which are likely to be the widest in it.
void FolderView::fitColumn(FolderModel::Column column, const QStringList& texts) {
    constexpr int padding = 28;
    const QString heading = model_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    int width = header()->fontMetrics().horizontalAdvance(heading);
    for (const QString& text : texts) {
        width = std::max(width, fontMetrics().horizontalAdvance(text));
    }
    header()->resizeSection(column, width + padding);
}

QModelIndex FolderView::selectedItem() const {
    return selectionModel()->selectedRows(FolderModel::name).value(0);
}

void FolderView::keyboardSearch(const QString& search) {
    if (search == u"/" || search == u"~") {
        emit pathTyped(search);
    } else {
        QTreeView::keyboardSearch(search);
    }
}

QString FolderView::message() const {
    switch (model_.state()) {
    case FolderModel::State::loading:
        return patience_.isActive() ? QString() : RecoveryAppCopy::localized(RecoveryAppCopy::Text::loading);
    case FolderModel::State::unreadable:
        return RecoveryAppCopy::localized(RecoveryAppCopy::Text::folderCannotBeOpened);
    case FolderModel::State::loaded:
        return model_.rowCount() == 0 ? localized(albumsFolderEmptyTitle()) : QString();
    }
    Q_UNREACHABLE();
}

void FolderView::showMessage() {
    setAccessibleDescription(message());
    viewport()->update();
}

void FolderView::keyPressEvent(QKeyEvent* event) {
    if (isReturnKey(*event) && selectedItem().isValid()) {
        emit itemActivated(selectedItem());
    } else if (event->key() == Qt::Key_Backspace) {
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
