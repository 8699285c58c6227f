#include "AmbrelRecoveryApp/FilePanels/PanelItemView.h"

#include "AmbrelRecoveryApp/Controls/FocusRing.h"
#include "AmbrelRecoveryApp/Controls/QuietScrollBar.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"
#include "AmbrelRecoveryApp/Foundation/FileNameText.h"

#include <QAbstractItemView>
#include <QPainter>
#include <QStyle>
#include <QStyledItemDelegate>

#include <algorithm>

namespace {

constexpr int textSize = 13;
constexpr int rowHeight = 32;
constexpr int padding = 10;
constexpr int symbolSpacing = 10;
constexpr qreal cornerRadius = 8;
constexpr double unfocusedFillOpacity = 0.16;

class RowDelegate final : public QStyledItemDelegate {
public:
    explicit RowDelegate(QAbstractItemView& view) : QStyledItemDelegate(&view), view_(view) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        paintBackground(*painter, option.rect, index.row());
        painter->setLayoutDirection(option.direction);
        QRect text = option.rect.adjusted(padding, 0, -padding, 0);
        const QVariant symbol = index.data(PanelItemView::symbolRole);
        if (symbol.isValid()) {
            const int size = option.font.pixelSize();
            const QRect place(text.left(), text.top() + (text.height() - size) / 2, size, size);
            const auto shown = static_cast<RecoverySymbol>(symbol.toInt());
            const bool isPackage = shown == RecoverySymbol::shippingboxFill;
            SymbolPainter::paint(*painter, shown, QStyle::visualRect(option.direction, option.rect, place),
                                 isPackage ? RecoveryPalette::copper() : RecoveryPalette::secondary());
            text.setLeft(place.right() + 1 + symbolSpacing);
        }
        painter->setFont(option.font);
        painter->setPen(symbol.isValid() ? RecoveryPalette::primary() : RecoveryPalette::secondary());
        const QString shown = option.fontMetrics.elidedText(index.data().toString(), Qt::ElideMiddle, text.width());
        painter->drawText(QStyle::visualRect(option.direction, option.rect, text),
                          Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine, FileNameText::isolated(shown));
        painter->restore();
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const override {
        return {0, std::max(rowHeight, option.fontMetrics.height() + padding)};
    }

private:
    /// Draws the part of the row's background that lies in `cell`: a tint if the row is selected, a ring if it has the
    /// keyboard focus.
    void paintBackground(QPainter& painter, const QRect& cell, int row) const {
        const QRect whole(0, cell.top(), view_.viewport()->width(), cell.height());
        painter.setClipRect(cell);
        if (view_.selectionModel()->isRowSelected(row)) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(view_.hasFocus()
                                 ? RecoveryPalette::chosenItem()
                                 : RecoveryPalette::withOpacity(RecoveryPalette::copper(), unfocusedFillOpacity));
            painter.drawRoundedRect(whole, cornerRadius, cornerRadius);
        }
        if (view_.currentIndex().row() == row) {
            FocusRing::paint(painter, view_, whole, cornerRadius, RecoveryPalette::primary());
        }
    }

    const QAbstractItemView& view_;
};

} // namespace

void PanelItemView::prepare(QAbstractItemView& view) {
    view.setFont(recoveryFont(textSize, QFont::Normal));
    view.setItemDelegate(new RowDelegate(view));
    view.setFrameShape(QFrame::NoFrame);
    view.setSelectionMode(QAbstractItemView::SingleSelection);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setDragDropMode(QAbstractItemView::NoDragDrop);
    view.setContextMenuPolicy(Qt::PreventContextMenu);
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.setVerticalScrollBar(new QuietScrollBar(&view));
    view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}
