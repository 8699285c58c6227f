#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRowLayout.h"

#include "ScreensTestSupport.h"

#include <QStyle>
#include <gtest/gtest.h>

namespace {

constexpr QRect row(40, 100, 560, 74);

SnapshotRowContent content() {
    return {.date = QStringLiteral("Jun 14, 2026, 9:41 AM"),
            .facts = {QStringLiteral("Items: 4,812"), QStringLiteral("Files: 9,630"), QStringLiteral("18.4 GB")},
            .payload = QStringLiteral("Complete"),
            .isComplete = true,
            .isSelected = true};
}

SnapshotRowLayout layoutIn(Qt::LayoutDirection direction) {
    return SnapshotRowLayout::of(content(), row, direction);
}

QRect mirrored(const QRect& place) {
    return QStyle::visualRect(Qt::RightToLeft, row, place);
}

TEST(SnapshotRowLayoutTest, placesTheMarkTheTextsAndThePayloadInOrder) {
    const SnapshotRowLayout layout = layoutIn(Qt::LeftToRight);
    EXPECT_LT(row.left(), layout.mark.left());
    EXPECT_LT(layout.mark.right(), layout.date.place.left());
    EXPECT_EQ(layout.date.place.left(), layout.facts.place.left());
    EXPECT_LT(layout.date.place.bottom(), layout.facts.place.top());
    EXPECT_LT(layout.date.place.right(), layout.payloadSymbol.left());
    EXPECT_LT(layout.payloadSymbol.right(), layout.payload.place.left());
    EXPECT_LT(layout.payload.place.right(), row.right());
}

TEST(SnapshotRowLayoutTest, isMirroredFromRightToLeft) {
    const SnapshotRowLayout layout = layoutIn(Qt::LeftToRight);
    const SnapshotRowLayout arabic = layoutIn(Qt::RightToLeft);
    EXPECT_EQ(arabic.mark, mirrored(layout.mark));
    EXPECT_EQ(arabic.date.place, mirrored(layout.date.place));
    EXPECT_EQ(arabic.facts.place, mirrored(layout.facts.place));
    EXPECT_EQ(arabic.payloadSymbol, mirrored(layout.payloadSymbol));
    EXPECT_EQ(arabic.payload.place, mirrored(layout.payload.place));
    EXPECT_NE(arabic.mark, layout.mark);
}

TEST(SnapshotRowLayoutTest, eachFactKeepsItsOwnDirectionFromRightToLeft) {
    EXPECT_EQ(layoutIn(Qt::LeftToRight).facts.text, content().factsLine());
    const QString drawn = layoutIn(Qt::RightToLeft).facts.text;
    constexpr QChar firstStrongIsolate(0x2068);
    constexpr QChar popDirectionalIsolate(0x2069);
    for (const QString& fact : content().facts) {
        EXPECT_TRUE(drawn.contains(firstStrongIsolate + fact + popDirectionalIsolate)) << fact.toStdString();
    }
    EXPECT_EQ(QString(drawn).remove(firstStrongIsolate).remove(popDirectionalIsolate), content().factsLine());
}

} // namespace
