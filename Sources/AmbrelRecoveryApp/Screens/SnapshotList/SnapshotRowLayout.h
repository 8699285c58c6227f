#pragma once

#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRowContent.h"

#include <QFont>
#include <QRect>

/// Where the parts of a row of the snapshot list stand, and in which font its texts are set. A text that is wider than
/// its place is set smaller, so that it is never cut off; enlarged texts stand one below the other.
struct SnapshotRowLayout {
    struct Text {
        QString text;
        QFont font;
        /// At least as wide as the text in this font.
        QRect place;
    };

    QRect mark;
    Text date;
    Text facts;
    QRect payloadSymbol;
    Text payload;

    /// The layout in `row`, in device-independent pixels, mirrored where the interface runs from right to left.
    static SnapshotRowLayout of(const SnapshotRowContent& content, const QRect& row, Qt::LayoutDirection direction);
    /// How high a row with this content has to be.
    static int heightOf(const SnapshotRowContent& content, Qt::LayoutDirection direction);
};
