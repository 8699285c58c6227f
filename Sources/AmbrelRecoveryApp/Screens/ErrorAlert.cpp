#include "AmbrelRecoveryApp/Screens/ErrorAlert.h"

#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/RoundedPanel.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace {

constexpr int panelWidth = 380;
constexpr int padding = 25;
constexpr int cornerRadius = 16;
constexpr float dimming = 0.45F;
constexpr int shadowSize = 24;
constexpr int shadowDrop = 10;
constexpr int shadowOpacity = 4;

} // namespace

ErrorAlert::ErrorAlert(QWidget* parent)
    : QWidget(parent), panel_(new QWidget(this)),
      title_(new TextLabel(recoveryFont(16, QFont::DemiBold), RecoveryPalette::primary(), panel_)),
      body_(new TextLabel(recoveryFont(13, QFont::Normal), RecoveryPalette::secondary(), panel_, 19)),
      okay_(new PrimaryRecoveryButton(std::nullopt, panel_)) {
    hide();
    okay_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    panel_->setFixedWidth(TextScale::scaled(panelWidth));
    auto* const column = new QVBoxLayout(panel_);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(8);
    column->addWidget(title_);
    column->addWidget(body_);
    column->addSpacing(9);
    column->addWidget(okay_);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(panel_, 0, Qt::AlignCenter);
    parent->installEventFilter(this);
    connect(okay_, &PrimaryRecoveryButton::clicked, this, &ErrorAlert::dismissed);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { keepFocus(now); });
}

void ErrorAlert::apply(const std::optional<ErrorAlertContent>& content) {
    if (content_ == content) {
        return;
    }
    const bool isAnother = content && (!content_ || content_->id != content->id);
    content_ = content;
    if (!content) {
        hide();
        return;
    }
    title_->setText(content->title);
    body_->setText(content->body);
    okay_->setLabel(content->okayLabel);
    setAccessibleName(content->title);
    setAccessibleDescription(content->body);
    if (isAnother) {
        present();
    }
}

void ErrorAlert::present() {
    setGeometry(parentWidget()->rect());
    raise();
    show();
    // The shadow of an error that is replaced may have another size.
    update();
    takeFocus();
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void ErrorAlert::takeFocus() {
    okay_->setFocus();
}

bool ErrorAlert::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
    }
    return QWidget::eventFilter(object, event);
}

bool ErrorAlert::focusNextPrevChild(bool /*next*/) {
    // There is only the button, and nothing behind the alert may get the focus.
    return true;
}

/// Assistive technology and the desktop may give the focus to any widget.
void ErrorAlert::keepFocus(QWidget* focused) {
    if (isVisible() && focused != nullptr && focused->window() == window() && !isAncestorOf(focused)) {
        takeFocus();
    }
}

void ErrorAlert::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Cancel)) {
        emit dismissed();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void ErrorAlert::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor::fromRgbF(0, 0, 0, dimming));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, shadowOpacity));
    const QRectF panel = panel_->geometry();
    const QRectF shadow = panel.translated(0, shadowDrop);
    for (int spread = 0; spread < shadowSize; ++spread) {
        painter.drawRoundedRect(shadow.adjusted(-spread, -spread, spread, spread), cornerRadius + spread,
                                cornerRadius + spread);
    }
    RoundedPanel::paint(painter, panel, cornerRadius, RecoveryPalette::alert(), RecoveryPalette::line());
}
