#include "AmbrelRecoveryApp/Platform/ItemPanel.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Platform/PanelPlaces.h"
#include "AmbrelRecoveryApp/RecoveryPalette.h"

#include <QAbstractItemView>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileSystemModel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>

#include <utility>

namespace {

constexpr QSize panelSize(760, 480);

/// The toolkit's file dialog notes down where it was, and has no option against that. Its notes are the only settings
/// of this program in the native format, which are sent to where no file can be made.
void keepToolkitFromRemembering() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

bool isPackage(const QString& path) {
    const QFileInfo information(path);
    return information.isDir() && information.suffix().compare(QStringLiteral("ambrel"), Qt::CaseInsensitive) == 0;
}

QPalette panelPalette() {
    QPalette colors;
    colors.setColor(QPalette::Window, RecoveryPalette::rail());
    colors.setColor(QPalette::WindowText, RecoveryPalette::primary());
    colors.setColor(QPalette::Base, RecoveryPalette::background());
    colors.setColor(QPalette::AlternateBase, RecoveryPalette::rail());
    colors.setColor(QPalette::Text, RecoveryPalette::primary());
    colors.setColor(QPalette::PlaceholderText, RecoveryPalette::muted());
    colors.setColor(QPalette::Button, RecoveryPalette::alert());
    colors.setColor(QPalette::ButtonText, RecoveryPalette::primary());
    colors.setColor(QPalette::Highlight, RecoveryPalette::copper());
    colors.setColor(QPalette::HighlightedText, RecoveryPalette::onCopper());
    colors.setColor(QPalette::ToolTipBase, RecoveryPalette::alert());
    colors.setColor(QPalette::ToolTipText, RecoveryPalette::primary());
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        colors.setColor(QPalette::Disabled, role, RecoveryPalette::muted());
    }
    return colors;
}

QString withHome(const QString& name) {
    return name == u"~" || name.startsWith(u"~/") ? QDir::homePath() + name.sliced(1) : name;
}

} // namespace

ItemPanel::ItemPanel(Purpose purpose, const Texts& texts, const QString& folder, RecoveryPanels::Completion completion,
                     QWidget* window)
    : QFileDialog((keepToolkitFromRemembering(), window)), purpose_(purpose), completion_(std::move(completion)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setOption(DontUseNativeDialog);
    setOption(ReadOnly, purpose == Purpose::existingItem);
    // In this mode the toolkit takes any name, new or not; its mode for saving would ask about overwriting and would
    // enter an existing folder of the proposed name.
    setAcceptMode(AcceptOpen);
    setFileMode(AnyFile);
    setWindowTitle(texts.title);
    setAccessibleName(texts.title);
    setPalette(panelPalette());
    setSidebarUrls(PanelPlaces::urls());
    setDirectory(folder);
    resize(panelSize);
    prepareFileName(texts.proposedName);
    prepareButtons(texts.prompt);
    prepareViews();
    nameWidgets();
    connect(this, &QDialog::rejected, this, [this] { complete(std::nullopt); });
}

ItemPanel::~ItemPanel() {
    complete(std::nullopt);
}

void ItemPanel::accept() {
    const QString name = withHome(fileName_->text());
    if (name.isEmpty()) {
        return;
    }
    const QString path = directory().absoluteFilePath(name);
    if (enterTypedFolder(path)) {
        return;
    }
    complete(QFile::encodeName(path).toStdString());
    QDialog::accept();
}

void ItemPanel::prepareFileName(const QString& proposedName) {
    fileName_ = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    // A list of proposals would take the return key that confirms.
    fileName_->setCompleter(nullptr);
    fileName_->setText(proposedName);
    fileName_->selectAll();
    fileName_->setFocus();
}

/// The toolkit renames and disables its own buttons as it sees fit, so that others stand in their place.
void ItemPanel::prepareButtons(const QString& prompt) {
    auto* const toolkitButtons = findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
    auto* const buttons = new QDialogButtonBox(toolkitButtons->orientation(), this);
    delete layout()->replaceWidget(toolkitButtons, buttons);
    toolkitButtons->hide();
    QPushButton* const acceptButton = buttons->addButton(prompt, QDialogButtonBox::AcceptRole);
    acceptButton->setDefault(true);
    acceptButton->setEnabled(!fileName_->text().isEmpty());
    buttons->addButton(AmbrelStrings::localized(AmbrelStrings::genericCancel()), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &ItemPanel::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ItemPanel::reject);
    connect(fileName_, &QLineEdit::textChanged, acceptButton,
            [acceptButton](const QString& text) { acceptButton->setEnabled(!text.isEmpty()); });
}

void ItemPanel::prepareViews() {
    for (const auto* const name : {"listView", "treeView"}) {
        auto* const view = findChild<QAbstractItemView*>(QLatin1String(name));
        // The toolkit's own reaction would enter a package.
        disconnect(view, &QAbstractItemView::activated, this, nullptr);
        connect(view, &QAbstractItemView::activated, this,
                [this, view](const QModelIndex& index) { activate(*view, index); });
        connect(view, &QAbstractItemView::clicked, this,
                [this, view](const QModelIndex& index) { showName(*view, index); });
        connect(view->selectionModel(), &QItemSelectionModel::currentChanged, this,
                [this, view](const QModelIndex& index) { showName(*view, index); });
    }
}

void ItemPanel::nameWidgets() {
    using namespace AmbrelStrings;
    setLabelText(LookIn, localized(filesExportFolder()));
    setLabelText(FileName, localized(detailsFilename()));
    fileName_->setAccessibleName(localized(detailsFilename()));
    const std::pair<const char*, QString> buttons[] = {{"backButton", localized(genericBack())},
                                                       {"newFolderButton", localized(organizationNewFolder())}};
    for (const auto& [name, text] : buttons) {
        auto* const button = findChild<QWidget*>(QLatin1String(name));
        button->setToolTip(text);
        button->setAccessibleName(text);
    }
    for (const auto* const name :
         {"fileTypeCombo", "fileTypeLabel", "forwardButton", "listModeButton", "detailModeButton"}) {
        findChild<QWidget*>(QLatin1String(name))->hide();
    }
}

void ItemPanel::activate(QAbstractItemView& view, const QModelIndex& index) {
    const QString path = index.siblingAtColumn(0).data(QFileSystemModel::FilePathRole).toString();
    if (QFileInfo(path).isDir() && !isPackage(path)) {
        if (purpose_ == Purpose::existingItem) {
            fileName_->clear();
        }
        setDirectory(path);
        return;
    }
    showName(view, index);
    accept();
}

/// Puts the item's name into the name field. Where a new item is named, a folder in the list is a place to go to and
/// not a name to take.
void ItemPanel::showName(QAbstractItemView& view, const QModelIndex& index) {
    const QModelIndex item = index.siblingAtColumn(0);
    const QString path = item.data(QFileSystemModel::FilePathRole).toString();
    const bool isPlace = purpose_ == Purpose::newItem && QFileInfo(path).isDir() && !isPackage(path);
    if (view.isVisible() && item.isValid() && !isPlace) {
        fileName_->setText(item.data(QFileSystemModel::FileNameRole).toString());
    }
}

/// A typed folder with a separator at its end, or a way upwards, is a place to go to.
bool ItemPanel::enterTypedFolder(const QString& path) {
    const bool isPlace =
        path.endsWith(u'/') || path.endsWith(QStringLiteral("/..")) || path.endsWith(QStringLiteral("/."));
    const QString folder = QDir::cleanPath(path);
    if (!isPlace || !QFileInfo(folder).isDir() || isPackage(folder)) {
        return false;
    }
    setDirectory(folder);
    fileName_->clear();
    return true;
}

void ItemPanel::complete(std::optional<std::filesystem::path> choice) {
    if (const auto completion = std::exchange(completion_, nullptr)) {
        completion(std::move(choice));
    }
}
