#include "AmbrelRecoveryApp/FilePanels/ItemPanel.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"
#include "AmbrelRecoveryApp/FilePanels/FolderView.h"
#include "AmbrelRecoveryApp/FilePanels/NewFolderPanel.h"
#include "AmbrelRecoveryApp/FilePanels/PanelNameField.h"
#include "AmbrelRecoveryApp/FilePanels/PathBar.h"
#include "AmbrelRecoveryApp/FilePanels/PlacesView.h"
#include "AmbrelRecoveryApp/FilePanels/SpaceView.h"
#include "AmbrelRecoveryApp/FilePanels/TypedItem.h"
#include "AmbrelRecoveryApp/Foundation/FileNameText.h"
#include "AmbrelRecoveryApp/Foundation/InterfaceDirection.h"
#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"

#include <QDir>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QLabel>
#include <QScopedValueRollback>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include <initializer_list>
#include <utility>

using namespace AmbrelStrings;

namespace {

constexpr QSize initialSize(860, 560);
constexpr QSize leastSize(660, 420);
constexpr int padding = 20;
constexpr int spacing = 10;

/// `size` enlarged by the text scale, as far as the screen has room.
QSize scaledToScreen(const QSize& size, const QScreen& screen) {
    const QSize enlarged(TextScale::scaled(size.width()), TextScale::scaled(size.height()));
    return enlarged.boundedTo(screen.availableSize()).expandedTo(size);
}

QBoxLayout* rowOf(std::initializer_list<QWidget*> widgets) {
    auto* const row = new QHBoxLayout;
    row->setSpacing(spacing);
    for (QWidget* const widget : widgets) {
        row->addWidget(widget);
    }
    return row;
}

} // namespace

ItemPanel::ItemPanel(Purpose purpose, const RecoveryPanels::SavePanel& request, const std::filesystem::path& folder,
                     RecoveryPanels::Completion completion, QWidget* window)
    : QDialog(window), purpose_(purpose), proposedName_(request.proposedName), completion_(std::move(completion)),
      files_(new FolderModel(this)), list_(new FolderView(*files_, this)), places_(new PlacesView(this)),
      path_(new PathBar(this)), newFolder_(new SecondaryRecoveryButton(std::nullopt, this)),
      fileName_(new PanelNameField(this)),
      space_(purpose == Purpose::newItem ? new SpaceView(request.requiredByteCount, this) : nullptr),
      cancel_(new SecondaryRecoveryButton(std::nullopt, this)), accept_(new PrimaryRecoveryButton(std::nullopt, this)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setLayoutDirection(interfaceDirection());
    setWindowTitle(request.title);
    setPalette(RecoveryPalette::ofToolkit());
    list_->setAccessibleName(localized(detailsResources()));
    newFolder_->setLabel(localized(organizationNewFolder()));
    cancel_->setLabel(localized(genericCancel()));
    accept_->setLabel(request.prompt);
    accept_->setDefault(true);
    fileName_->setText(proposedName_);
    fileName_->selectAll();
    layOut();
    connectParts();
    addShortcuts();
    handleNameChange();
    path_->begin(folder);
    setMinimumSize(scaledToScreen(leastSize, *screen()));
    resize(scaledToScreen(initialSize, *screen()));
    (purpose == Purpose::newItem ? static_cast<QWidget*>(fileName_) : list_)->setFocus();
}

ItemPanel::~ItemPanel() {
    complete();
}

const std::filesystem::path& ItemPanel::folder() const {
    return path_->folder();
}

void ItemPanel::done(int result) {
    finding_.drop();
    QDialog::done(result);
    complete();
}

/// Accepts the name or the selection, whichever the user changed last.
void ItemPanel::accept() {
    const QModelIndex selected = list_->selectedItem();
    if (!selected.isValid()) {
        findTyped();
    } else if (purpose_ == Purpose::newItem) {
        activate(selected);
    } else {
        choose(files_->path(selected));
    }
}

void ItemPanel::layOut() {
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(places_);
    auto* const content = new QVBoxLayout;
    content->setContentsMargins(padding, padding, padding, padding);
    content->setSpacing(spacing);
    newFolder_->setButtonHeight(SecondaryRecoveryButton::lowHeight);
    newFolder_->setFont(recoveryFont(13, QFont::Medium));
    newFolder_->setVisible(purpose_ == Purpose::newItem);
    content->addLayout(rowOf({path_, newFolder_}));
    content->addWidget(list_, 1);
    auto* const label = new QLabel(localized(detailsFilename()), this);
    label->setFont(recoveryFont(13, QFont::Medium));
    label->setBuddy(fileName_);
    content->addLayout(rowOf({label, fileName_}));
    if (space_) {
        content->addWidget(space_);
    }
    content->addSpacing(spacing / 2);
    cancel_->setButtonHeight(accept_->sizeHint().height());
    QBoxLayout* const buttons = rowOf({cancel_, accept_});
    buttons->insertStretch(0);
    content->addLayout(buttons);
    layout->addLayout(content, 1);
}

void ItemPanel::connectParts() {
    connect(files_, &FolderModel::wasRead, this, &ItemPanel::handleReading);
    connect(list_, &FolderView::itemActivated, this, &ItemPanel::activate);
    connect(list_, &FolderView::upRequested, path_, &PathBar::goUp);
    connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ItemPanel::nameSelectedItem);
    connect(list_, &FolderView::pathTyped, this, &ItemPanel::beginPath);
    connect(places_, &PlacesView::placeChosen, path_, &PathBar::goTo);
    connect(path_, &PathBar::folderChanged, this, &ItemPanel::showFolder);
    connect(newFolder_, &SecondaryRecoveryButton::clicked, this, &ItemPanel::makeFolder);
    connect(fileName_, &PanelNameField::textChanged, this, &ItemPanel::handleNameChange);
    connect(accept_, &PrimaryRecoveryButton::clicked, this, &ItemPanel::accept);
    connect(cancel_, &SecondaryRecoveryButton::clicked, this, &ItemPanel::reject);
}

void ItemPanel::addShortcuts() {
    new QShortcut(Qt::CTRL | Qt::Key_H, this, files_, &FolderModel::toggleHiddenItems);
    new QShortcut(Qt::ALT | Qt::Key_Left, this, path_, &PathBar::goBack);
    new QShortcut(Qt::ALT | Qt::Key_Up, this, path_, &PathBar::goUp);
}

void ItemPanel::activate(const QModelIndex& index) {
    const std::filesystem::path path = files_->path(index);
    if (files_->item(index).kind == FolderContents::Item::Kind::folder) {
        path_->goTo(path);
    } else {
        choose(path);
    }
}

/// When a new item is named, selecting a folder does not change the name: it is only a place to go to.
void ItemPanel::nameSelectedItem() {
    const QModelIndex selected = list_->selectedItem();
    if (!selected.isValid()) {
        return;
    }
    const FolderContents::Item& item = files_->item(selected);
    finding_.drop();
    if (purpose_ == Purpose::existingItem || item.kind != FolderContents::Item::Kind::folder) {
        const QScopedValueRollback naming(isNamingSelection_, true);
        fileName_->setText(FileNameText::readable(item.name));
    }
}

void ItemPanel::handleNameChange() {
    finding_.drop();
    accept_->setEnabled(!fileName_->text().isEmpty() && !fileName_->text().contains(QChar::Null));
    if (!isNamingSelection_) {
        list_->clearSelection();
    }
    showSpace();
}

void ItemPanel::beginPath(const QString& beginning) {
    fileName_->setText(beginning);
    fileName_->setFocus();
    fileName_->deselect();
    fileName_->end(false);
}

void ItemPanel::handleReading() {
    const bool isOfNoUse = files_->state() == FolderModel::State::unreadable ||
                           (purpose_ == Purpose::newItem && !files_->isFolderWritable());
    const std::filesystem::path home = QDir::homePath().toStdString();
    if (std::exchange(isAtBeginning_, false) && isOfNoUse && folder() != home) {
        path_->begin(home);
        return;
    }
    newFolder_->setEnabled(files_->isFolderWritable());
    if (space_) {
        space_->refresh();
    }
}

void ItemPanel::makeFolder() {
    auto* const panel = new NewFolderPanel(folder(), this);
    connect(panel, &NewFolderPanel::made, path_, &PathBar::goTo);
    panel->open();
}

void ItemPanel::findTyped() {
    if (finding_.isRunning()) {
        return;
    }
    const bool isStarted =
        finding_.start([text = fileName_->text(), folder = folder()] { return TypedItem::find(text, folder); },
                       [this](const TypedItem& item) { chooseTyped(item); });
    if (!isStarted) {
        // No thread is available: the receiver of the path has to resolve the text.
        choose(folder() / fileName_->text().toStdString());
    }
}

void ItemPanel::chooseTyped(const TypedItem& item) {
    if (!item.isFolderToEnter) {
        choose(item.path);
        return;
    }
    path_->goTo(item.path);
    fileName_->setText(proposedName_);
    fileName_->selectAll();
}

void ItemPanel::showFolder(const std::filesystem::path& folder) {
    finding_.drop();
    isAtBeginning_ = isAtBeginning_ && files_->folder().empty();
    if (purpose_ == Purpose::existingItem) {
        fileName_->clear();
    }
    newFolder_->setEnabled(false);
    files_->setFolder(folder);
    places_->showFolder(folder);
    showSpace();
}

void ItemPanel::showSpace() {
    if (space_) {
        space_->setPlace(folder(), fileName_->text());
    }
}

void ItemPanel::choose(const std::filesystem::path& path) {
    choice_ = path;
    done(Accepted);
}

void ItemPanel::complete() {
    if (const auto completion = std::exchange(completion_, nullptr)) {
        completion(choice_);
    }
}
