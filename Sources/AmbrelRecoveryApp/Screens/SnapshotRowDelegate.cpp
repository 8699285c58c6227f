#include "AmbrelRecoveryApp/Screens/SnapshotRowDelegate.h"

#include "AmbrelRecoveryApp/Controls/CenteredText.h"
#include "AmbrelRecoveryApp/Controls/FocusRing.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RoundedPanel.h"
#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"
#include "AmbrelRecoveryApp/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Screens/SnapshotListModel.h"

#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace {

constexpr int gap = 10;
constexpr int padding = 17;
constexpr qreal cornerRadius = 16;
constexpr int dateSize = 15;
constexpr int factsSize = 12;
constexpr int markSize = 22;
constexpr int markSpacing = 15;
constexpr int lineSpacing = 6;
/// Between the border and the texts; below them it is less by the space that letters without descenders leave.
constexpr int topPadding = padding + 1;
constexpr int bottomPadding = padding - 3;
constexpr int payloadSymbolSize = 16;
constexpr int payloadSpacing = 7;
constexpr double selectedFillOpacity = 0.09;

QFont dateFont() {
    return recoveryFont(dateSize, QFont::DemiBold);
}

QFont factsFont() {
    return recoveryFont(factsSize, QFont::Normal);
}

QFont payloadFont() {
    return recoveryFont(12, QFont::Medium);
}

const SnapshotListModel& modelOf(const QModelIndex& index) {
    return *static_cast<const SnapshotListModel*>(index.model());
}

/// The height of a line of `text`, whose letters the font may have to borrow from a higher one.
int lineHeight(const QString& text, const QFont& font) {
    QTextLayout layout(text, font);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    if (line.isValid()) {
        line.setNumColumns(static_cast<int>(text.size()));
    }
    const qreal height = line.isValid() ? line.height() : QFontMetricsF(font).height();
    layout.endLayout();
    return static_cast<int>(std::ceil(height));
}

/// The facts as they are drawn. From right to left each keeps its own direction, so that a size in Latin letters is not
/// torn apart.
QString drawnFacts(const SnapshotRowContent& content, Qt::LayoutDirection direction) {
    if (direction == Qt::LeftToRight) {
        return content.factsLine();
    }
    constexpr QChar firstStrongIsolate(0x2068);
    constexpr QChar popDirectionalIsolate(0x2069);
    SnapshotRowContent isolated = content;
    for (QString& fact : isolated.facts) {
        fact = firstStrongIsolate + fact + popDirectionalIsolate;
    }
    return isolated.factsLine();
}

/// Draws one row. Places are computed from left to right and mirrored where the interface runs the other way.
class RowPainter {
public:
    RowPainter(QPainter& painter, const QRect& row, Qt::LayoutDirection direction)
        : painter_(painter), row_(row), direction_(direction) {
        painter_.setLayoutDirection(direction);
    }

    void paint(const SnapshotRowContent& content) {
        paintPanel(content.isSelected);
        const int trailing = paintPayload(content);
        paintTexts(content, trailing - markSpacing);
    }

private:
    QRect mirrored(const QRect& place) const { return QStyle::visualRect(direction_, row_, place); }

    void paintPanel(bool isSelected) {
        const QColor copper = RecoveryPalette::copper();
        RoundedPanel::paint(painter_, row_, cornerRadius,
                            isSelected ? RecoveryPalette::withOpacity(copper, selectedFillOpacity)
                                       : RecoveryPalette::card(),
                            isSelected ? copper : RecoveryPalette::line());
        const QRect mark(row_.left() + padding + 1, row_.top() + (row_.height() - markSize) / 2, markSize, markSize);
        SymbolPainter::paint(painter_, isSelected ? RecoverySymbol::checkmarkCircleFill : RecoverySymbol::circle,
                             mirrored(mark), isSelected ? copper : RecoveryPalette::muted());
    }

    /// Gives where the payload's state begins.
    int paintPayload(const SnapshotRowContent& content) {
        const QColor color = content.isComplete ? RecoveryPalette::success() : RecoveryPalette::warning();
        const int textWidth =
            static_cast<int>(std::ceil(QFontMetricsF(payloadFont()).horizontalAdvance(content.payload)));
        const QRect text(row_.right() + 1 - padding - 1 - textWidth, row_.top(), textWidth, row_.height());
        painter_.setPen(color);
        painter_.setFont(payloadFont());
        CenteredText::paint(painter_, mirrored(text), content.payload);
        const QRect symbol(text.left() - payloadSpacing - payloadSymbolSize,
                           row_.top() + (row_.height() - payloadSymbolSize) / 2, payloadSymbolSize, payloadSymbolSize);
        SymbolPainter::paint(painter_,
                             content.isComplete ? RecoverySymbol::checkmarkCircle
                                                : RecoverySymbol::exclamationmarkTriangleFill,
                             mirrored(symbol), color);
        return symbol.left();
    }

    void paintTexts(const SnapshotRowContent& content, int trailing) {
        const int leading = row_.left() + padding + 1 + markSize + markSpacing;
        const int texts = row_.height() - (topPadding + 1) - (bottomPadding + 1) - lineSpacing;
        const int dateHeight = texts * dateSize / (dateSize + factsSize);
        const QRect date(leading, row_.top() + topPadding + 1, trailing - leading, dateHeight);
        paintLine(content.date, dateFont(), RecoveryPalette::primary(), date);
        const QString facts = drawnFacts(content, direction_);
        const QRect below(leading, date.bottom() + 1 + lineSpacing, date.width(), texts - dateHeight);
        paintLine(facts, factsFont(), RecoveryPalette::muted(), below);
    }

    void paintLine(const QString& text, const QFont& font, const QColor& color, const QRect& place) {
        painter_.setFont(font);
        painter_.setPen(color);
        painter_.drawText(mirrored(place), Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine,
                          QFontMetrics(font).elidedText(text, Qt::ElideRight, place.width()));
    }

    QPainter& painter_;
    const QRect row_;
    const Qt::LayoutDirection direction_;
};

} // namespace

QRect SnapshotRowDelegate::rowRect(const QRect& item) {
    return item.adjusted(0, 0, 0, -gap);
}

void SnapshotRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QRect row = rowRect(option.rect);
    painter->save();
    RowPainter(*painter, row, option.direction).paint(modelOf(index).content(index));
    if (option.state.testFlag(QStyle::State_HasFocus) && FocusRing::isShown(*option.widget)) {
        FocusRing::paint(*painter, row, cornerRadius, RecoveryPalette::primary());
    }
    painter->restore();
}

QSize SnapshotRowDelegate::sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const {
    const SnapshotRowContent content = modelOf(index).content(index);
    const int texts = lineHeight(content.date, dateFont()) + lineSpacing + lineHeight(content.factsLine(), factsFont());
    return {0, (topPadding + 1) + (bottomPadding + 1) + texts + gap};
}
