#include "AmbrelRecoveryApp/Screens/JourneyRail.h"

#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SymbolView.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"
#include "AmbrelRecoveryApp/Screens/RailStepList.h"

#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>

namespace {

constexpr int contentWidth = 192;
constexpr int borderWidth = 1;
constexpr int leadingPadding = 22;
constexpr int trailingPadding = 22;
constexpr int topPadding = 52;
constexpr int bottomPadding = 28;
constexpr int badgeSize = 11;

/// A badge at the bottom of the rail: a symbol and a text.
QHBoxLayout* badge(RecoverySymbol symbol, TextLabel* text) {
    auto* const layout = new QHBoxLayout;
    layout->setSpacing(8);
    layout->addWidget(new SymbolView(symbol, badgeSize, RecoveryPalette::muted()), 0, Qt::AlignVCenter);
    layout->addWidget(text, 1);
    return layout;
}

} // namespace

JourneyRail::JourneyRail(QWidget* parent)
    : QWidget(parent), brand_(new TextLabel(recoveryFont(19, QFont::DemiBold), RecoveryPalette::primary(), this)),
      product_(new TextLabel(recoveryFont(12, QFont::Medium), RecoveryPalette::muted(), this)),
      steps_(new RailStepList(this)),
      noAccount_(new TextLabel(recoveryFont(badgeSize, QFont::Normal), RecoveryPalette::muted(), this)),
      readOnly_(new TextLabel(recoveryFont(badgeSize, QFont::Normal), RecoveryPalette::muted(), this)) {
    setFixedWidth(leadingPadding + TextScale::scaled(contentWidth) + trailingPadding);
    auto* const layout = new QVBoxLayout;
    layout->setSpacing(0);
    layout->addLayout(makeBrandBlock());
    layout->addSpacing(44);
    layout->addWidget(steps_);
    layout->addSpacing(20);
    layout->addStretch(1);
    layout->addLayout(badge(RecoverySymbol::personCropCircleBadgeXmark, noAccount_));
    layout->addSpacing(9);
    layout->addLayout(badge(RecoverySymbol::checkmarkShield, readOnly_));

    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, topPadding, 0, bottomPadding);
    row->setSpacing(0);
    row->addSpacing(leadingPadding);
    row->addLayout(layout, 1);
    row->addSpacing(trailingPadding);
}

QHBoxLayout* JourneyRail::makeBrandBlock() {
    auto* const names = new QVBoxLayout;
    names->setContentsMargins(0, 0, 0, 2);
    names->setSpacing(2);
    names->addStretch(1);
    names->addWidget(brand_);
    names->addWidget(product_);
    names->addStretch(1);

    auto* const block = new QHBoxLayout;
    block->setSpacing(12);
    block->addWidget(new SymbolView(RecoverySymbol::photoStackFill, 18, RecoveryPalette::copper(), this,
                                    QFont::DemiBold,
                                    SymbolView::Shape{.size = 44, .cornerRadius = 12, .opacity = 0.16}));
    block->addLayout(names, 1);
    return block;
}

void JourneyRail::apply(const JourneyRailContent& content) {
    brand_->setText(content.brand);
    product_->setText(content.product);
    steps_->apply(content.steps);
    noAccount_->setText(content.noAccount);
    readOnly_->setText(content.readOnly);
}

void JourneyRail::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), RecoveryPalette::rail());
    painter.fillRect(
        QStyle::visualRect(layoutDirection(), rect(), QRect(width() - borderWidth, 0, borderWidth, height())),
        RecoveryPalette::line());
}
