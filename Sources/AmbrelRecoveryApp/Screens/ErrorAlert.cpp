#include "AmbrelRecoveryApp/Screens/ErrorAlert.h"

#include "AmbrelRecoveryApp/Screens/ErrorAlertDialog.h"

#include <QAccessible>
#include <QApplication>
#include <QEvent>
#include <QPainter>

namespace {

constexpr float dimming = 0.45F;
constexpr int shadowSize = 24;
constexpr int shadowDrop = 10;
constexpr int shadowOpacity = 4;

} // namespace

ErrorAlert::ErrorAlert(QWidget* parent) : QWidget(parent), dialog_(new ErrorAlertDialog(this)) {
    hide();
    parent->installEventFilter(this);
    connect(dialog_, &QDialog::finished, this, &ErrorAlert::dismissed);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { keepFocus(now); });
}

void ErrorAlert::apply(const std::optional<ErrorAlertContent>& content) {
    if (content_ == content) {
        return;
    }
    const bool isAnother = content && (!content_ || content_->id != content->id);
    content_ = content;
    if (!content) {
        dialog_->hide();
        hide();
        return;
    }
    dialog_->apply(*content);
    cover();
    if (isAnother) {
        raise();
        leaveFocus();
        show();
        dialog_->open();
        dialog_->takeFocus();
        QAccessibleEvent event(dialog_, QAccessible::Alert);
        QAccessible::updateAccessibility(&event);
    }
}

/// If the window is not active, a dialog that opens sends a focus event to the widget that would have the focus, and a
/// caret would blink behind the alert.
void ErrorAlert::leaveFocus() {
    QWidget* const focused = window()->focusWidget();
    if (focused != nullptr && !focused->hasFocus()) {
        focused->clearFocus();
    }
}

void ErrorAlert::takeFocus() {
    dialog_->takeFocus();
}

bool ErrorAlert::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        cover();
    }
    return QWidget::eventFilter(object, event);
}

void ErrorAlert::cover() {
    setGeometry(parentWidget()->rect());
    QRect place(0, 0, dialog_->width(), dialog_->heightForWidth(dialog_->width()));
    place.moveCenter(rect().center());
    dialog_->setGeometry(place);
    update();
}

/// Assistive technology and the desktop may give the focus to any widget.
void ErrorAlert::keepFocus(QWidget* focused) {
    if (isVisible() && focused != nullptr && focused->window() == window() && !isAncestorOf(focused)) {
        dialog_->takeFocus();
    }
}

void ErrorAlert::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor::fromRgbF(0, 0, 0, dimming));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, shadowOpacity));
    const QRectF shadow = QRectF(dialog_->geometry()).translated(0, shadowDrop);
    for (int spread = 0; spread < shadowSize; ++spread) {
        painter.drawRoundedRect(shadow.adjusted(-spread, -spread, spread, spread),
                                ErrorAlertDialog::cornerRadius + spread, ErrorAlertDialog::cornerRadius + spread);
    }
}
