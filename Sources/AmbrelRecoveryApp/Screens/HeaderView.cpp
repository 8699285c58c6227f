#include "AmbrelRecoveryApp/Screens/HeaderView.h"

#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"

#include <QVBoxLayout>

namespace {

constexpr int bodySize = 16;
/// One and a half times the body size.
constexpr int bodyLinePitch = 24;
constexpr int bodyWidth = 600;

} // namespace

HeaderView::HeaderView(QWidget* parent)
    : QWidget(parent), badge_(new TextLabel(recoveryFont(11, QFont::Bold, 2.1), RecoveryPalette::copper(), this)),
      title_(new TextLabel(recoveryFont(42, QFont::Light), RecoveryPalette::primary(), this)),
      body_(new TextLabel(recoveryFont(bodySize, QFont::Normal), RecoveryPalette::secondary(), this, bodyLinePitch)) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(badge_);
    layout->addSpacing(4);
    layout->addWidget(title_);
    layout->addSpacing(7);
    body_->setMaximumWidth(TextScale::scaled(bodyWidth));
    layout->addWidget(body_);
}

void HeaderView::apply(const HeaderContent& content) {
    badge_->setText(content.badge);
    title_->setText(content.title);
    body_->setText(content.body);
}
