#include "AmbrelRecoveryApp/Controls/ProgressRow.h"

#include "AmbrelRecoveryApp/Controls/IconButton.h"
#include "AmbrelRecoveryApp/Controls/ProgressIndicator.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"

#include <QHBoxLayout>

ProgressRow::ProgressRow(QWidget* parent)
    : QWidget(parent), indicator_(new ProgressIndicator(this)),
      percent_(new TextLabel(recoveryFont(14, QFont::DemiBold), RecoveryPalette::primary(), this)),
      title_(new TextLabel(recoveryFont(14, QFont::Medium), RecoveryPalette::primary(), this)),
      cancel_(new IconButton(RecoverySymbol::xmark, this)) {
    percent_->hide();
    percent_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(12);
    layout->addWidget(indicator_);
    layout->addWidget(percent_);
    layout->addWidget(title_, 1);
    layout->addWidget(cancel_);
    connect(cancel_, &IconButton::clicked, this, &ProgressRow::cancelled);
}

void ProgressRow::apply(const ProgressRowContent& content) {
    indicator_->setFraction(content.fraction);
    indicator_->setAccessibleName(content.title);
    percent_->setText(content.percent);
    percent_->setVisible(content.fraction.has_value());
    title_->setText(content.title);
    cancel_->setLabel(content.cancelLabel);
}

QWidget* ProgressRow::cancelButton() const {
    return cancel_;
}
