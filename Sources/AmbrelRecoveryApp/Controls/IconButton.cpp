#include "AmbrelRecoveryApp/Controls/IconButton.h"

#include "AmbrelRecoveryApp/Controls/FocusRing.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/ReturnKey.h"
#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

namespace {

/// Larger than the symbol, so that it is easy to hit.
constexpr int buttonSize = 28;
/// The size of the text beside such a button.
constexpr int symbolSize = 14;

} // namespace

IconButton::IconButton(RecoverySymbol symbol, QWidget* parent) : QAbstractButton(parent), symbol_(symbol) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void IconButton::setLabel(const QString& label) {
    if (toolTip().isEmpty()) {
        // Only once there is a tooltip: most buttons of the first window are never seen.
        setStyleSheet(RecoveryPalette::toolTipStyleSheet());
    }
    setAccessibleName(label);
    setToolTip(label);
}

QSize IconButton::sizeHint() const {
    return {buttonSize, buttonSize};
}

/// On some desktops, Qt would press the button.
void IconButton::keyPressEvent(QKeyEvent* event) {
    if (isReturnKey(*event)) {
        event->ignore();
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}

void IconButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // At the trailing edge, aligned with the content above and below.
    const QRect place(width() - symbolSize, (height() - symbolSize) / 2, symbolSize, symbolSize);
    const QRect symbolRect = QStyle::visualRect(layoutDirection(), rect(), place);
    const bool isLit = isDown() || underMouse();
    SymbolPainter::paint(painter, symbol_, symbolRect, isLit ? RecoveryPalette::primary() : RecoveryPalette::muted());
    FocusRing::paint(painter, *this, QStyle::visualRect(layoutDirection(), rect(), place.adjusted(-8, -6, 0, 6)), 8,
                     RecoveryPalette::copper());
}
