#include "AmbrelRecoveryApp/Screens/RecoveryIcon.h"

#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"

#include <QPainter>
#include <QPixmap>

namespace {

constexpr int sizes[] = {16, 24, 32, 48, 64, 128};
constexpr qreal cornerShare = 0.25;
constexpr qreal symbolShare = 0.75;

QPixmap draw(int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(RecoveryPalette::copper());
    painter.drawRoundedRect(pixmap.rect(), size * cornerShare, size * cornerShare);
    QRectF symbol(0, 0, size * symbolShare, size * symbolShare);
    symbol.moveCenter(QRectF(pixmap.rect()).center());
    SymbolPainter::paint(painter, RecoverySymbol::photoStackFill, symbol, RecoveryPalette::onCopper());
    return pixmap;
}

} // namespace

QIcon RecoveryIcon::icon() {
    QIcon icon;
    for (const int size : sizes) {
        icon.addPixmap(draw(size));
    }
    return icon;
}
