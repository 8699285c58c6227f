#include "AmbrelRecoveryApp/Screens/ErrorAlertDialog.h"

#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/RoundedPanel.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"

#include <QPainter>
#include <QVBoxLayout>

namespace {

constexpr int dialogWidth = 380;
constexpr int padding = 25;

} // namespace

ErrorAlertDialog::ErrorAlertDialog(QWidget* parent)
    : QDialog(parent), title_(new TextLabel(recoveryFont(16, QFont::DemiBold), RecoveryPalette::primary(), this)),
      body_(new TextLabel(recoveryFont(13, QFont::Normal), RecoveryPalette::secondary(), this, 19)),
      okay_(new PrimaryRecoveryButton(std::nullopt, this)) {
    setWindowFlags(Qt::Widget);
    setModal(true);
    setFixedWidth(TextScale::scaled(dialogWidth));
    okay_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    okay_->setDefault(true);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(8);
    layout->addWidget(title_);
    layout->addWidget(body_);
    layout->addSpacing(9);
    layout->addWidget(okay_);
    connect(okay_, &PrimaryRecoveryButton::clicked, this, &QDialog::accept);
}

void ErrorAlertDialog::apply(const ErrorAlertContent& content) {
    title_->setText(content.title);
    body_->setText(content.body);
    okay_->setLabel(content.okayLabel);
    setAccessibleName(content.title);
    setAccessibleDescription(content.body);
    layout()->activate();
}

void ErrorAlertDialog::takeFocus() {
    okay_->setFocus();
}

bool ErrorAlertDialog::focusNextPrevChild(bool /*next*/) {
    // There is only the button, and nothing behind the dialog may get the focus.
    return true;
}

void ErrorAlertDialog::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    RoundedPanel::paint(painter, rect(), cornerRadius, RecoveryPalette::alert(), RecoveryPalette::line());
}
