#include "AmbrelRecoveryApp/Controls/Card.h"

#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/RoundedPanel.h"

#include <QPainter>

Card::Card(QWidget* parent) : Card(RecoveryPalette::panel(), RecoveryPalette::line(), parent) {}

Card::Card(const QColor& fill, const QColor& border, QWidget* parent) : QWidget(parent), fill_(fill), border_(border) {}

void Card::paintEvent(QPaintEvent* /*event*/) {
    constexpr qreal cornerRadius = 18;
    QPainter painter(this);
    RoundedPanel::paint(painter, rect(), cornerRadius, fill_, border_);
}
