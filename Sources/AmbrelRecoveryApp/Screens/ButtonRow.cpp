#include "AmbrelRecoveryApp/Screens/ButtonRow.h"

#include <QEvent>
#include <QPushButton>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace {

constexpr int spacing = 12;

} // namespace

ButtonRow::ButtonRow(std::vector<QPushButton*> buttons, QWidget* parent)
    : QWidget(parent), buttons_(std::move(buttons)) {
    for (QPushButton* const button : buttons_) {
        button->setParent(this);
    }
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

int ButtonRow::widthSideBySide() const {
    int width = -spacing;
    for (const QPushButton* const button : buttons_) {
        width += button->sizeHint().width() + spacing;
    }
    return width;
}

int ButtonRow::heightForWidth(int width) const {
    int highest = 0;
    int sum = -spacing;
    for (const QPushButton* const button : buttons_) {
        highest = std::max(highest, button->sizeHint().height());
        sum += button->sizeHint().height() + spacing;
    }
    return width >= widthSideBySide() ? highest : sum;
}

QSize ButtonRow::sizeHint() const {
    return {widthSideBySide(), heightForWidth(widthSideBySide())};
}

QSize ButtonRow::minimumSizeHint() const {
    int widest = 0;
    for (const QPushButton* const button : buttons_) {
        widest = std::max(widest, button->minimumSizeHint().width());
    }
    return {widest, heightForWidth(widthSideBySide())};
}

bool ButtonRow::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::LayoutDirectionChange) {
        updateGeometry();
        place();
    }
    return QWidget::event(event);
}

void ButtonRow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    place();
}

void ButtonRow::place() {
    const bool isSideBySide = width() >= widthSideBySide();
    QPoint position(0, 0);
    for (QPushButton* const button : buttons_) {
        const QRect logical(position, button->sizeHint().boundedTo({width(), height()}));
        button->setGeometry(QStyle::visualRect(layoutDirection(), rect(), logical));
        position += isSideBySide ? QPoint(logical.width() + spacing, 0) : QPoint(0, logical.height() + spacing);
    }
}
