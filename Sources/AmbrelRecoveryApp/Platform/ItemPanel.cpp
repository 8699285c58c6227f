#include "AmbrelRecoveryApp/Platform/ItemPanel.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Platform/FolderNameDelegate.h"
#include "AmbrelRecoveryApp/Platform/PanelColumns.h"
#include "AmbrelRecoveryApp/Platform/PanelPalette.h"
#include "AmbrelRecoveryApp/Platform/PanelPlaces.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSettings>
#include <QShortcut>
#include <QTreeView>

#include <utility>

namespace {

constexpr QSize panelSize(760, 480);

QWidget* withToolkitPrepared(QWidget* window) {
    // The toolkit's file dialog notes down where it was, and has no option against that. Its notes are the only
    // settings of this program in the native format, which are sent to where no file can be made.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
    // Before its options can be set, the dialog would already make the desktop's own chooser.
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    return window;
}

bool isPackage(const QFileInfo& item) {
    return item.isDir() && item.suffix().compare(QStringLiteral("ambrel"), Qt::CaseInsensitive) == 0;
}

bool isOrdinaryFolder(const QString& path) {
    const QFileInfo item(path);
    return item.isDir() && !isPackage(item);
}

QString pathOf(const QModelIndex& index) {
    return index.siblingAtColumn(PanelColumns::name).data(QFileSystemModel::FilePathRole).toString();
}

QString join(const QString& folder, const QString& name) {
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

QString withoutTrailingSeparators(QString path) {
    while (path.size() > 1 && path.endsWith(u'/')) {
        path.chop(1);
    }
    return path;
}

} // namespace

ItemPanel::ItemPanel(Purpose purpose, const Texts& texts, const QString& folder, RecoveryPanels::Completion completion,
                     QWidget* window)
    : QFileDialog(withToolkitPrepared(window), texts.title, folder), purpose_(purpose),
      proposedName_(texts.proposedName), completion_(std::move(completion)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setOption(DontUseNativeDialog);
    setOption(DontResolveSymlinks);
    setOption(ReadOnly, purpose == Purpose::existingItem);
    // In this mode the toolkit takes any name, new or not; its mode for saving would ask about overwriting and would
    // enter an existing folder of the proposed name.
    setAcceptMode(AcceptOpen);
    setFileMode(AnyFile);
    setViewMode(Detail);
    prepareModel();
    setAccessibleName(texts.title);
    setPalette(PanelPalette::colors());
    setSidebarUrls(PanelPlaces::urls());
    setHistory({});
    prepareViews();
    prepareFileName();
    prepareButtons(texts.prompt);
    nameWidgets();
    hideWidgets();
    resize(panelSize);
}

ItemPanel::~ItemPanel() {
    complete(std::nullopt);
}

void ItemPanel::done(int result) {
    QFileDialog::done(result);
    complete(result == Accepted ? std::exchange(choice_, std::nullopt) : std::nullopt);
}

void ItemPanel::accept() {
    const QString path = requestedPath();
    if (path.isEmpty()) {
        return;
    }
    if (!isPlaceToGo(path)) {
        take(withoutTrailingSeparators(path));
        return;
    }
    const bool isTyped = selectedPath().isEmpty();
    goTo(QDir::cleanPath(path));
    if (isTyped) {
        fileName_->setText(proposedName_);
        fileName_->selectAll();
    }
}

void ItemPanel::prepareModel() {
    auto* const files = findChild<QFileSystemModel*>();
    auto* const columns = new PanelColumns(this);
    // Before the views hear of it: in the place of a current item that goes away, they select the next one.
    connect(files, &QFileSystemModel::rowsAboutToBeRemoved, this, [this] { isItemLeaving_ = true; });
    setProxyModel(columns);
    connect(columns, &PanelColumns::rowsRemoved, this, [this] {
        isItemLeaving_ = false;
        if (std::exchange(isNeighborSelected_, false)) {
            selection_->clearSelection();
        }
    });
}

void ItemPanel::prepareViews() {
    auto* const tree = findChild<QTreeView*>(QStringLiteral("treeView"));
    tree->hideColumn(PanelColumns::type);
    tree->header()->setSectionResizeMode(PanelColumns::name, QHeaderView::Stretch);
    prepareView(*tree);
    prepareView(*findChild<QAbstractItemView*>(QStringLiteral("listView")));
    selection_ = tree->selectionModel();
    // The toolkit's own reaction would put no folder's name into the field, and some selected item's at a wrong time.
    disconnect(selection_, &QItemSelectionModel::selectionChanged, this, nullptr);
    connect(selection_, &QItemSelectionModel::selectionChanged, this, &ItemPanel::nameSelectedItem);
    if (purpose_ == Purpose::existingItem) {
        connect(findChild<QFileSystemModel*>(), &QFileSystemModel::rootPathChanged, this,
                [this] { fileName_->clear(); });
    }
    // The toolkit offers this only in a menu that can also delete and rename.
    auto* const showHidden = findChild<QAction*>(QStringLiteral("qt_show_hidden_action"));
    showHidden->setShortcut(Qt::CTRL | Qt::Key_H);
    addAction(showHidden);
}

/// Leaves to a list only what choosing needs: nothing in it can be moved, renamed or deleted.
void ItemPanel::prepareView(QAbstractItemView& view) {
    // The toolkit's own reaction would enter a package.
    disconnect(&view, &QAbstractItemView::activated, this, nullptr);
    connect(&view, &QAbstractItemView::activated, this, &ItemPanel::activate);
    view.setItemDelegate(new FolderNameDelegate(&view));
    view.setContextMenuPolicy(Qt::PreventContextMenu);
    view.setDragDropMode(QAbstractItemView::NoDragDrop);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    qDeleteAll(view.findChildren<QShortcut*>());
}

void ItemPanel::prepareFileName() {
    fileName_ = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    // A list of proposals would take the return key that confirms.
    fileName_->setCompleter(nullptr);
    // The toolkit selects what is typed as soon as there is such an item, and keeps it selected when it no longer is.
    disconnect(fileName_, &QLineEdit::textChanged, this, nullptr);
    fileName_->setText(proposedName_);
    fileName_->selectAll();
    fileName_->setFocus();
    connect(fileName_, &QLineEdit::textChanged, this, &ItemPanel::takeNameChange);
}

/// The toolkit renames and disables its own buttons as it sees fit, so that others stand in their place.
void ItemPanel::prepareButtons(const QString& prompt) {
    auto* const toolkitButtons = findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
    auto* const buttons = new QDialogButtonBox(toolkitButtons->orientation(), this);
    delete layout()->replaceWidget(toolkitButtons, buttons);
    toolkitButtons->hide();
    acceptButton_ =
        buttons->addButton(QString(prompt).replace(u'&', QStringLiteral("&&")), QDialogButtonBox::AcceptRole);
    acceptButton_->setDefault(true);
    acceptButton_->setEnabled(!fileName_->text().isEmpty());
    buttons->addButton(AmbrelStrings::localized(AmbrelStrings::genericCancel()), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &ItemPanel::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ItemPanel::reject);
}

void ItemPanel::nameWidgets() {
    using namespace AmbrelStrings;
    setLabelText(LookIn, localized(filesExportFolder()));
    setLabelText(FileName, localized(detailsFilename()));
    fileName_->setAccessibleName(localized(detailsFilename()));
    findChild<QTreeView*>(QStringLiteral("treeView"))->setAccessibleName(localized(detailsResources()));
    const std::pair<const char*, QString> buttons[] = {{"backButton", localized(genericBack())},
                                                       {"newFolderButton", localized(organizationNewFolder())}};
    for (const auto& [name, text] : buttons) {
        auto* const button = findChild<QWidget*>(QLatin1String(name));
        button->setToolTip(text);
        button->setAccessibleName(text);
    }
}

void ItemPanel::hideWidgets() {
    for (const auto* const name :
         {"fileTypeCombo", "fileTypeLabel", "forwardButton", "listModeButton", "detailModeButton"}) {
        findChild<QWidget*>(QLatin1String(name))->hide();
    }
    findChild<QWidget*>(QStringLiteral("newFolderButton"))->setVisible(purpose_ == Purpose::newItem);
}

void ItemPanel::activate(const QModelIndex& index) {
    const QString path = pathOf(index);
    if (isOrdinaryFolder(path)) {
        goTo(path);
    } else {
        take(path);
    }
}

/// Where a new item is named, a selected folder is a place to go to and leaves the name as it is.
void ItemPanel::nameSelectedItem() {
    if (isItemLeaving_) {
        isNeighborSelected_ = true;
        return;
    }
    const QString path = selectedPath();
    if (path.isEmpty() || (purpose_ == Purpose::newItem && isOrdinaryFolder(path))) {
        return;
    }
    const QScopedValueRollback naming(isNamingSelection_, true);
    fileName_->setText(QFileInfo(path).fileName());
}

void ItemPanel::takeNameChange(const QString& name) {
    acceptButton_->setEnabled(!name.isEmpty());
    if (!isNamingSelection_) {
        selection_->clearSelection();
    }
}

QString ItemPanel::requestedPath() const {
    const QString selected = selectedPath();
    return selected.isEmpty() ? typedPath() : selected;
}

QString ItemPanel::selectedPath() const {
    const QModelIndexList rows = selection_->selectedRows();
    return rows.isEmpty() ? QString() : pathOf(rows.first());
}

QString ItemPanel::typedPath() const {
    QString name = fileName_->text();
    if (name.isEmpty() || name.contains(QChar::Null)) {
        return {};
    }
    if (name.startsWith(u'/')) {
        return name;
    }
    const QString shownFolder = findChild<QFileSystemModel*>()->rootPath();
    const QString path = join(shownFolder.startsWith(u'/') ? shownFolder : QStringLiteral("/"), name);
    const bool isFromHome = name == u"~" || name.startsWith(u"~/");
    return isFromHome && !QFileInfo::exists(path) ? QDir::homePath() + name.sliced(1) : path;
}

bool ItemPanel::isPlaceToGo(const QString& path) const {
    const bool isWrittenAsFolder = path.endsWith(QStringLiteral("/")) || path.endsWith(QStringLiteral("/.")) ||
                                   path.endsWith(QStringLiteral("/.."));
    const bool isSelectedFolder = purpose_ == Purpose::newItem && selection_->hasSelection();
    return (isWrittenAsFolder || isSelectedFolder) && isOrdinaryFolder(QDir::cleanPath(path));
}

void ItemPanel::goTo(const QString& folder) {
    setDirectory(folder);
    selection_->clearSelection();
    if (purpose_ == Purpose::existingItem) {
        fileName_->clear();
    }
}

void ItemPanel::take(const QString& path) {
    choice_ = QFile::encodeName(path).toStdString();
    done(Accepted);
}

void ItemPanel::complete(std::optional<std::filesystem::path> choice) {
    if (const auto completion = std::exchange(completion_, nullptr)) {
        completion(std::move(choice));
    }
}
