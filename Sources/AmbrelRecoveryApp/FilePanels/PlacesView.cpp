#include "AmbrelRecoveryApp/FilePanels/PlacesView.h"

#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/ReturnKey.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"
#include "AmbrelRecoveryApp/FilePanels/MountedVolumes.h"
#include "AmbrelRecoveryApp/FilePanels/PanelItemView.h"
#include "AmbrelRecoveryApp/FilePanels/PanelRowDelegate.h"
#include "AmbrelRecoveryApp/FilePanels/PanelTexts.h"

#include <QKeyEvent>
#include <QPainter>
#include <QSocketNotifier>

#include <algorithm>

namespace {

constexpr int listWidth = 196;
constexpr int textSize = 13;
constexpr int symbolRole = Qt::UserRole;

/// Draws the rows with their background, which a plain list does not draw.
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
    const PanelRowDelegate texts_{symbolRole, nullptr};
};

} // namespace

PlacesView::PlacesView(QWidget* parent)
    : QListWidget(parent), volumeTable_(QString::fromLatin1(MountedVolumes::tablePath)) {
    setFont(recoveryFont(textSize, QFont::Normal));
    setItemDelegate(new PlaceDelegate(this));
    setAccessibleName(PanelTexts::localized(PanelTexts::Text::locations));
    setFixedWidth(TextScale::scaled(listWidth));
    setUniformItemSizes(true);
    PanelItemView::prepare(*this);
    connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { choose(row(item)); });
    fill();
    findUsualFolders();
    watchVolumes();
}

/// If no thread is available, home and the volumes are enough to reach every folder.
void PlacesView::findUsualFolders() {
    finding_.start(PanelPlaces::usualFolders, [this](std::vector<PanelPlaces::Place> folders) {
        usualFolders_ = std::move(folders);
        fill();
    });
}

void PlacesView::watchVolumes() {
    if (volumeTable_.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        auto* const changes = new QSocketNotifier(volumeTable_.handle(), QSocketNotifier::Exception, this);
        connect(changes, &QSocketNotifier::activated, this, &PlacesView::fill);
    }
}

void PlacesView::fill() {
    std::vector<PanelPlaces::Place> places{PanelPlaces::home()};
    for (const auto& group : {usualFolders_, PanelPlaces::volumes()}) {
        for (const PanelPlaces::Place& place : group) {
            if (std::ranges::find(places, place.path, &PanelPlaces::Place::path) == places.end()) {
                places.push_back(place);
            }
        }
    }
    if (places == places_) {
        return;
    }
    places_ = std::move(places);
    clear();
    for (const PanelPlaces::Place& place : places_) {
        auto* const item = new QListWidgetItem(place.name, this);
        item->setData(symbolRole, static_cast<int>(place.symbol));
    }
    showFolder(folder_);
}

void PlacesView::showFolder(const std::filesystem::path& folder) {
    folder_ = folder;
    const auto place = std::ranges::find(places_, folder, &PanelPlaces::Place::path);
    if (place != places_.end()) {
        setCurrentRow(static_cast<int>(place - places_.begin()));
    } else {
        clearSelection();
    }
}

void PlacesView::choose(int row) {
    // A copy, since emitting the signal may change the list.
    const std::filesystem::path place = path(row);
    emit placeChosen(place);
}

void PlacesView::keyPressEvent(QKeyEvent* event) {
    if (isReturnKey(*event) && currentRow() >= 0) {
        choose(currentRow());
    } else {
        QListWidget::keyPressEvent(event);
    }
}
