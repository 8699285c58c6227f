#include "AmbrelRecoveryApp/FilePanels/PanelRowDelegate.h"

#include "AmbrelRecoveryApp/Controls/FocusRing.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"
#include "AmbrelRecoveryApp/Foundation/FileNameText.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace {

constexpr int rowHeight = 32;
constexpr int padding = 10;
constexpr int symbolSpacing = 10;
constexpr qreal cornerRadius = 8;
constexpr double unfocusedFillOpacity = 0.16;

} // namespace

PanelRowDelegate::PanelRowDelegate(int symbolRole, QObject* parent)
    : QStyledItemDelegate(parent), symbolRole_(symbolRole) {}

void PanelRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QRect text = option.rect.adjusted(padding, 0, -padding, 0);
    const QVariant symbol = index.data(symbolRole_);
    const int symbolSize = option.font.pixelSize();
    painter->save();
    painter->setLayoutDirection(option.direction);
    if (symbol.isValid()) {
        const QRect place(text.left(), text.top() + (text.height() - symbolSize) / 2, symbolSize, symbolSize);
        const auto shown = static_cast<RecoverySymbol>(symbol.toInt());
        const bool isPackage = shown == RecoverySymbol::shippingboxFill;
        SymbolPainter::paint(*painter, shown, QStyle::visualRect(option.direction, option.rect, place),
                             isPackage ? RecoveryPalette::copper() : RecoveryPalette::secondary());
        text.setLeft(place.right() + 1 + symbolSpacing);
    }
    const QString shown = index.data().toString();
    painter->setFont(option.font);
    painter->setPen(symbol.isValid() ? RecoveryPalette::primary() : RecoveryPalette::secondary());
    painter->drawText(
        QStyle::visualRect(option.direction, option.rect, text),
        Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine,
        FileNameText::isolated(QFontMetrics(option.font).elidedText(shown, Qt::ElideMiddle, text.width())));
    painter->restore();
}

QSize PanelRowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const {
    return {0, std::max(rowHeight, QFontMetrics(option.font).height() + padding)};
}

void PanelRowDelegate::paintRow(QPainter& painter, const QWidget& list, const QRect& row, bool isSelected,
                                bool isCurrent) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (isSelected) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(list.hasFocus()
                             ? RecoveryPalette::chosenItem()
                             : RecoveryPalette::withOpacity(RecoveryPalette::copper(), unfocusedFillOpacity));
        painter.drawRoundedRect(row, cornerRadius, cornerRadius);
    }
    if (isCurrent) {
        FocusRing::paint(painter, list, row, cornerRadius, RecoveryPalette::primary());
    }
    painter.restore();
}
