#include "AmbrelRecoveryApp/Screens/RailBadge.h"

#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SymbolView.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"

#include <QHBoxLayout>

namespace {

constexpr int textSize = 11;

} // namespace

RailBadge::RailBadge(RecoverySymbol symbol, QWidget* parent)
    : QWidget(parent), text_(new TextLabel(recoveryFont(textSize, QFont::Normal), RecoveryPalette::muted(), this)) {
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(new SymbolView(symbol, textSize, RecoveryPalette::muted(), this), 0, Qt::AlignVCenter);
    layout->addWidget(text_, 1);
}

void RailBadge::setText(const QString& text) {
    text_->setText(text);
}
