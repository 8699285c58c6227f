#include "AmbrelRecoveryApp/FilePanels/FolderHeader.h"

#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"

#include <QPainter>
#include <QStyle>

namespace {

constexpr int textSize = 12;
constexpr int inset = 10;
constexpr int markSize = 7;

} // namespace

FolderHeader::FolderHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setFont(recoveryFont(textSize, QFont::Medium));
    setSectionsClickable(true);
    setContextMenuPolicy(Qt::PreventContextMenu);
    viewport()->setAutoFillBackground(false);
}

QSize FolderHeader::sectionSizeFromContents(int /*section*/) const {
    return {0, fontMetrics().height() + inset};
}

void FolderHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setLayoutDirection(layoutDirection());
    const QString text = model()->headerData(section, Qt::Horizontal, Qt::DisplayRole).toString();
    const QRect place = rect.adjusted(inset, 0, -inset, 0);
    painter->setPen(RecoveryPalette::muted());
    painter->drawText(place, Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine, text);
    if (sortIndicatorSection() == section) {
        const int leading = place.left() + fontMetrics().horizontalAdvance(text) + inset;
        const QRectF mark = QStyle::visualRect(
            layoutDirection(), rect, QRect(leading, rect.center().y() - markSize / 4, markSize, markSize / 2));
        const bool pointsUp = sortIndicatorOrder() == Qt::AscendingOrder;
        const qreal base = pointsUp ? mark.bottom() : mark.top();
        const qreal tip = pointsUp ? mark.top() : mark.bottom();
        const QPointF points[] = {{mark.left(), base}, {mark.center().x(), tip}, {mark.right(), base}};
        painter->setPen(QPen(RecoveryPalette::muted(), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPolyline(points, std::size(points));
    }
    painter->setPen(RecoveryPalette::line());
    painter->drawLine(rect.bottomLeft(), rect.bottomRight());
    painter->restore();
}
