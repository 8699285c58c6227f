#include "AmbrelRecoveryApp/Screens/ButtonRow.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>

#include <algorithm>

namespace {

constexpr int spacing = 12;

} // namespace

ButtonRow::ButtonRow(std::initializer_list<QPushButton*> buttons, QWidget* parent)
    : QWidget(parent), layout_(new QHBoxLayout(this)) {
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setSpacing(spacing);
    for (QPushButton* const button : buttons) {
        layout_->addWidget(button, 0, Qt::AlignLeading | Qt::AlignTop);
    }
    layout_->addStretch();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize ButtonRow::minimumSizeHint() const {
    int widest = 0;
    for (const QPushButton* const button : findChildren<QPushButton*>()) {
        widest = std::max(widest, button->minimumSizeHint().width());
    }
    return {widest, QWidget::minimumSizeHint().height()};
}

bool ButtonRow::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize) {
        arrange();
    }
    return QWidget::event(event);
}

void ButtonRow::arrange() {
    int needed = -spacing;
    for (const QPushButton* const button : findChildren<QPushButton*>()) {
        needed += button->sizeHint().width() + spacing;
    }
    layout_->setDirection(needed <= width() ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}
