#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRowLayout.h"

#include "AmbrelRecoveryApp/Controls/FittedText.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"
#include "AmbrelRecoveryApp/Foundation/FileNameText.h"

#include <QStyle>

#include <algorithm>

namespace {

constexpr int padding = 17;
constexpr int dateSize = 15;
constexpr int factsSize = 12;
constexpr int payloadSize = 12;
constexpr int markSize = 20;
constexpr int markSpacing = 15;
constexpr int lineSpacing = 4;
constexpr int payloadSpacing = 7;

/// Returns the facts as they are drawn. In a right-to-left interface, each keeps its own direction, so that a size in
/// Latin letters is not torn apart.
QString drawnFacts(const SnapshotRowContent& content, Qt::LayoutDirection direction) {
    if (direction == Qt::LeftToRight) {
        return content.factsLine();
    }
    SnapshotRowContent isolated = content;
    for (QString& fact : isolated.facts) {
        fact = FileNameText::isolated(fact);
    }
    return isolated.factsLine();
}

} // namespace

SnapshotRowLayout SnapshotRowLayout::of(const SnapshotRowContent& content, const QRect& row,
                                        Qt::LayoutDirection direction) {
    const auto mirrored = [&](int left, int top, int width, int height) {
        return QStyle::visualRect(direction, row, QRect(left, top, width, height));
    };
    const auto text = [&](const QString& shown, const QFont& font, const QRect& place) {
        return Text{.text = shown, .font = FittedText::font(shown, font, place.width()), .place = place};
    };
    const bool isStacked = TextScale::isEnlarged();
    const QFont dateFont = recoveryFont(dateSize, QFont::DemiBold);
    const QFont factsFont = recoveryFont(factsSize, QFont::Normal);
    const QFont payloadFont = recoveryFont(payloadSize, QFont::Medium);
    const QSize payload = FittedText::size(content.payload, payloadFont);
    const int symbolSize = payloadFont.pixelSize();
    const int mark = TextScale::scaled(markSize);
    const int leading = row.left() + padding + mark + markSpacing;
    const int trailing = row.left() + row.width() - padding;
    const int symbolLeft = isStacked ? leading : trailing - payload.width() - payloadSpacing - symbolSize;
    const int payloadLeft = symbolLeft + symbolSize + payloadSpacing;
    const int width = (isStacked ? trailing : symbolLeft - markSpacing) - leading;

    const QString facts = drawnFacts(content, direction);
    const int dateTop = row.top() + padding;
    const int dateHeight = FittedText::size(content.date, dateFont).height();
    const int factsTop = dateTop + dateHeight + lineSpacing;
    const int factsHeight = FittedText::size(facts, factsFont).height();
    const int payloadTop = isStacked ? factsTop + factsHeight + lineSpacing : row.top();
    const int payloadHeight = isStacked ? payload.height() : row.height();
    return {
        .mark = mirrored(row.left() + padding, row.top() + (row.height() - mark) / 2, mark, mark),
        .date = text(content.date, dateFont, mirrored(leading, dateTop, width, dateHeight)),
        .facts = text(facts, factsFont, mirrored(leading, factsTop, width, factsHeight)),
        .payloadSymbol = mirrored(symbolLeft, payloadTop + (payloadHeight - symbolSize) / 2, symbolSize, symbolSize),
        .payload =
            text(content.payload, payloadFont,
                 mirrored(payloadLeft, payloadTop, std::min(payload.width(), trailing - payloadLeft), payloadHeight)),
    };
}

int SnapshotRowLayout::heightOf(const SnapshotRowContent& content, Qt::LayoutDirection direction) {
    // Wide enough for any text.
    constexpr QRect row(0, 0, 1'000'000, 0);
    const SnapshotRowLayout layout = of(content, row, direction);
    return (TextScale::isEnlarged() ? layout.payload : layout.facts).place.bottom() + 1 + padding;
}
