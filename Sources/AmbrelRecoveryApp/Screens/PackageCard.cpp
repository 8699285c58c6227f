#include "AmbrelRecoveryApp/Screens/PackageCard.h"

#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/SymbolView.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"

#include <QHBoxLayout>

PackageCard::PackageCard(QWidget* parent)
    : Card(parent), symbol_(new SymbolView(RecoverySymbol::shippingboxFill, 22, RecoveryPalette::muted(), this)),
      name_(new TextLabel(recoveryFont(16, QFont::DemiBold), RecoveryPalette::primary(), this)),
      kind_(new TextLabel(recoveryFont(12, QFont::Normal), RecoveryPalette::muted(), this)),
      hint_(new TextLabel(recoveryFont(13, QFont::Normal), RecoveryPalette::secondary(), this, 19)),
      choose_(new SecondaryRecoveryButton(RecoverySymbol::folder, this)) {
    name_->useDirectionOfText();

    auto* const texts = new QWidget(this);
    auto* const column = new QVBoxLayout(texts);
    column->setContentsMargins(0, 0, 0, 3);
    column->setSpacing(4);
    column->addWidget(name_);
    column->addWidget(kind_);
    column->addWidget(hint_);

    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(19, 19, 19, 19);
    row->setSpacing(16);
    row->addWidget(symbol_);
    row->addWidget(texts, 1, Qt::AlignVCenter);
    if (TextScale::isEnlarged()) {
        column->addSpacing(8);
        column->addWidget(choose_, 0, Qt::AlignLeading);
    } else {
        row->addWidget(choose_);
    }
}

void PackageCard::apply(const ChooseBackupContent::Package& content) {
    symbol_->setColor(content.name ? RecoveryPalette::copper() : RecoveryPalette::muted());
    name_->setVisible(content.name.has_value());
    name_->setText(content.name.value_or(QString()));
    kind_->setVisible(content.name.has_value());
    kind_->setText(content.kind);
    hint_->setVisible(!content.name);
    hint_->setText(content.hint);
    choose_->setLabel(content.chooseLabel);
    choose_->setEnabled(content.canChoose);
}
