#include "AmbrelRecoveryApp/Controls/Notice.h"

#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SymbolView.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"

#include <QHBoxLayout>

namespace {

constexpr double fillOpacity = 0.08;
constexpr double borderOpacity = 0.35;

} // namespace

Notice::Notice(RecoverySymbol symbol, QWidget* parent)
    : Card(RecoveryPalette::withOpacity(RecoveryPalette::warning(), fillOpacity),
           RecoveryPalette::withOpacity(RecoveryPalette::warning(), borderOpacity), parent),
      title_(new TextLabel(recoveryFont(15, QFont::DemiBold), RecoveryPalette::primary(), this)),
      body_(new TextLabel(recoveryFont(13, QFont::Normal), RecoveryPalette::secondary(), this, 19)) {
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(3);
    texts->addWidget(title_);
    texts->addWidget(body_);

    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(17, 17, 17, 15);
    row->setSpacing(11);
    row->addWidget(new SymbolView(symbol, 18, RecoveryPalette::warning(), this, QFont::DemiBold), 0, Qt::AlignTop);
    row->addLayout(texts, 1);
}

void Notice::apply(const NoticeContent& content) {
    title_->setText(content.title);
    body_->setText(content.body);
}
