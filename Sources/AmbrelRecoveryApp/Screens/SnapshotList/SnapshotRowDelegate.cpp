#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRowDelegate.h"

#include "AmbrelRecoveryApp/Controls/CenteredText.h"
#include "AmbrelRecoveryApp/Controls/FocusRing.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/RoundedPanel.h"
#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotListModel.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRowLayout.h"

#include <QPainter>

namespace {

constexpr int gap = 10;
constexpr qreal cornerRadius = 16;

const SnapshotListModel& modelOf(const QModelIndex& index) {
    return *static_cast<const SnapshotListModel*>(index.model());
}

void paintPanel(QPainter& painter, const QRect& row, const QRect& mark, bool isSelected) {
    const QColor copper = RecoveryPalette::copper();
    RoundedPanel::paint(painter, row, cornerRadius,
                        isSelected ? RecoveryPalette::chosenRow() : RecoveryPalette::panel(),
                        isSelected ? copper : RecoveryPalette::line());
    SymbolPainter::paint(painter, isSelected ? RecoverySymbol::checkmarkCircleFill : RecoverySymbol::circle, mark,
                         isSelected ? copper : RecoveryPalette::muted());
}

void paintLine(QPainter& painter, const SnapshotRowLayout::Text& line, const QColor& color) {
    painter.setFont(line.font);
    painter.setPen(color);
    painter.drawText(line.place, Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine, line.text);
}

void paintPayload(QPainter& painter, const SnapshotRowLayout& layout, bool isComplete) {
    const QColor color = isComplete ? RecoveryPalette::success() : RecoveryPalette::warning();
    SymbolPainter::paint(painter,
                         isComplete ? RecoverySymbol::checkmarkCircleFill : RecoverySymbol::exclamationmarkTriangleFill,
                         layout.payloadSymbol, color);
    painter.setPen(color);
    painter.setFont(layout.payload.font);
    CenteredText::paint(painter, layout.payload.place, layout.payload.text);
}

} // namespace

QRect SnapshotRowDelegate::rowRect(const QRect& item) {
    return item.adjusted(0, 0, 0, -gap);
}

void SnapshotRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QRect row = rowRect(option.rect);
    const SnapshotRowContent content = modelOf(index).content(index);
    const SnapshotRowLayout layout = SnapshotRowLayout::of(content, row, option.direction);
    painter->save();
    painter->setLayoutDirection(option.direction);
    paintPanel(*painter, row, layout.mark, content.isSelected);
    paintPayload(*painter, layout, content.isComplete);
    paintLine(*painter, layout.date, RecoveryPalette::primary());
    paintLine(*painter, layout.facts, RecoveryPalette::muted());
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        FocusRing::paint(*painter, *option.widget, row, cornerRadius, RecoveryPalette::primary());
    }
    painter->restore();
}

QSize SnapshotRowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    return {0, SnapshotRowLayout::heightOf(modelOf(index).content(index), option.direction) + gap};
}
