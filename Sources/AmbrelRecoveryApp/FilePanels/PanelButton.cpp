#include "AmbrelRecoveryApp/FilePanels/PanelButton.h"

#include "AmbrelRecoveryApp/Controls/FocusRing.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/RoundedPanel.h"
#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"

#include <QPainter>

namespace {

constexpr int buttonSize = 34;
constexpr int symbolSize = 14;
constexpr qreal cornerRadius = 10;

} // namespace

PanelButton::PanelButton(RecoverySymbol symbol, const QString& label, QWidget* parent)
    : QAbstractButton(parent), symbol_(symbol) {
    setAccessibleName(label);
    setToolTip(label);
    setStyleSheet(RecoveryPalette::toolTipStyleSheet());
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

QSize PanelButton::sizeHint() const {
    return {buttonSize, buttonSize};
}

void PanelButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1 : RecoveryPalette::disabledOpacity);
    const bool isLit = isEnabled() && (isDown() || underMouse());
    RoundedPanel::paint(painter, rect(), cornerRadius, isLit ? RecoveryPalette::highlight() : RecoveryPalette::raised(),
                        RecoveryPalette::outline());
    QRect symbol(0, 0, symbolSize, symbolSize);
    symbol.moveCenter(rect().center());
    SymbolPainter::paint(painter, symbol_, symbol, RecoveryPalette::primary());
    if (FocusRing::isShown(*this)) {
        FocusRing::paint(painter, rect(), cornerRadius, RecoveryPalette::copper());
    }
}
