#include "AmbrelRecoveryApp/FilePanels/NewFolderPanel.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"
#include "AmbrelRecoveryApp/FilePanels/FolderContents.h"
#include "AmbrelRecoveryApp/FilePanels/PanelNameField.h"
#include "AmbrelRecoveryApp/Foundation/InterfaceDirection.h"
#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace AmbrelStrings;
using RecoveryAppCopy::Text;

namespace {

constexpr int panelWidth = 380;
constexpr int padding = 24;

std::error_code makeFolder(const std::filesystem::path& folder) {
    // The new folder must be neither inside a package nor look like one.
    if (FolderContents::isWithinPackage(folder)) {
        return std::make_error_code(std::errc::operation_not_permitted);
    }
    std::error_code error;
    const bool isMade = std::filesystem::create_directory(folder, error);
    return isMade || error ? error : std::make_error_code(std::errc::file_exists);
}

bool canBeName(const QString& name) {
    return !name.isEmpty() && name != u"." && name != u".." && !name.contains(u'/') && !name.contains(QChar::Null);
}

} // namespace

NewFolderPanel::NewFolderPanel(std::filesystem::path folder, QWidget* panel)
    : QDialog(panel), folder_(std::move(folder)), name_(new PanelNameField(this)),
      message_(new TextLabel(recoveryFont(13, QFont::Normal), RecoveryPalette::warning(), this)),
      create_(new PrimaryRecoveryButton(std::nullopt, this)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setLayoutDirection(interfaceDirection());
    QPalette colors = RecoveryPalette::ofToolkit();
    colors.setColor(QPalette::Window, RecoveryPalette::rail());
    setPalette(colors);
    setWindowTitle(localized(organizationNewFolder()));
    setFixedWidth(TextScale::scaled(panelWidth));
    message_->hide();
    create_->setLabel(RecoveryAppCopy::localized(Text::create));
    create_->setDefault(true);
    auto* const cancel = new SecondaryRecoveryButton(std::nullopt, this);
    cancel->setLabel(localized(genericCancel()));
    cancel->setButtonHeight(create_->sizeHint().height());

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(10);
    auto* const label = new TextLabel(recoveryFont(13, QFont::Medium), RecoveryPalette::secondary(), this);
    label->setText(localized(organizationName()));
    label->setBuddy(name_);
    layout->addWidget(label);
    layout->addWidget(name_);
    layout->addWidget(message_);
    layout->addSpacing(8);
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(10);
    buttons->addStretch();
    buttons->addWidget(cancel);
    buttons->addWidget(create_);
    layout->addLayout(buttons);

    name_->setText(localized(organizationNewFolder()));
    name_->selectAll();
    name_->setFocus();
    connect(name_, &QLineEdit::textChanged, this, &NewFolderPanel::handleNameChange);
    connect(create_, &PrimaryRecoveryButton::clicked, this, &NewFolderPanel::accept);
    connect(cancel, &SecondaryRecoveryButton::clicked, this, &NewFolderPanel::reject);
}

void NewFolderPanel::accept() {
    if (making_.isRunning() || !canBeName(name_->text())) {
        return;
    }
    const std::filesystem::path folder = folder_ / name_->text().toStdString();
    create_->setEnabled(false);
    const bool isStarted = making_.start([folder] { return makeFolder(folder); },
                                         [this, folder](const std::error_code& error) { finish(folder, error); });
    if (!isStarted) {
        finish(folder, std::make_error_code(std::errc::resource_unavailable_try_again));
    }
}

void NewFolderPanel::finish(const std::filesystem::path& folder, const std::error_code& error) {
    // The name may have been changed in the meantime.
    create_->setEnabled(canBeName(name_->text()));
    if (!error) {
        emit made(folder);
        QDialog::accept();
        return;
    }
    const bool isTaken = error == std::errc::file_exists;
    showMessage(RecoveryAppCopy::localized(isTaken ? Text::nameIsTaken : Text::folderNotCreated));
    name_->setFocus();
    name_->selectAll();
}

void NewFolderPanel::handleNameChange() {
    create_->setEnabled(!making_.isRunning() && canBeName(name_->text()));
    showMessage({});
}

void NewFolderPanel::showMessage(const QString& message) {
    message_->setText(message);
    message_->setVisible(!message.isEmpty());
    setAccessibleDescription(message);
    layout()->activate();
    adjustSize();
}
