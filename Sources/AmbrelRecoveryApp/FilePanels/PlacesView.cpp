#include "AmbrelRecoveryApp/FilePanels/PlacesView.h"

#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/ReturnKey.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"
#include "AmbrelRecoveryApp/FilePanels/PanelItemView.h"
#include "AmbrelRecoveryApp/FilePanels/PanelRowDelegate.h"
#include "AmbrelRecoveryApp/FilePanels/PanelTexts.h"

#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr int listWidth = 196;
constexpr int textSize = 13;

/// The rows of the places, with what lies behind them: in a plain list no one else draws it.
class PlaceDelegate final : public QStyledItemDelegate {
public:
    explicit PlaceDelegate(QAbstractItemView* view) : QStyledItemDelegate(view), view_(view) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        PanelRowDelegate::paintRow(*painter, *view_, option.rect, view_->selectionModel()->isSelected(index),
                                   view_->currentIndex() == index);
        texts_.paint(painter, option, index);
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return texts_.sizeHint(option, index);
    }

private:
    const QAbstractItemView* const view_;
    const PanelRowDelegate texts_{PlacesModel::SymbolRole, nullptr};
};

} // namespace

PlacesView::PlacesView(QWidget* parent) : QListView(parent), model_(new PlacesModel(this)) {
    setFont(recoveryFont(textSize, QFont::Normal));
    setItemDelegate(new PlaceDelegate(this));
    setModel(model_);
    // After the selection's own reaction, which drops it.
    connect(model_, &QAbstractItemModel::modelReset, this, [this] { showFolder(folder_); });
    setAccessibleName(PanelTexts::localized(PanelTexts::Text::locations));
    setFixedWidth(TextScale::scaled(listWidth));
    setUniformItemSizes(true);
    PanelItemView::prepare(*this);
    connect(this, &QListView::clicked, this, [this](const QModelIndex& index) {
        const std::filesystem::path place = model_->path(index);
        emit placeChosen(place);
    });
}

void PlacesView::showFolder(const std::filesystem::path& folder) {
    folder_ = folder;
    const QModelIndex place = model_->indexOf(folder);
    if (place.isValid()) {
        setCurrentIndex(place);
    } else {
        clearSelection();
    }
}

void PlacesView::keyPressEvent(QKeyEvent* event) {
    if (ReturnKey::is(*event) && currentIndex().isValid()) {
        // A copy, since going there may change the list.
        const std::filesystem::path place = model_->path(currentIndex());
        emit placeChosen(place);
    } else {
        QListView::keyPressEvent(event);
    }
}
