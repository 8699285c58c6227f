#pragma once

#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRowContent.h"

#include <QFont>
#include <QRect>

/// The places of the parts of a row of the snapshot list, and the fonts of its texts. A text that is too wide for its
/// place is shown smaller, so that it is never cut off. Enlarged texts are stacked.
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

    /// Returns the layout in `row`, in device-independent pixels, mirrored for a right-to-left interface.
    static SnapshotRowLayout of(const SnapshotRowContent& content, const QRect& row, Qt::LayoutDirection direction);
    /// Returns the height of a row with this content, in device-independent pixels.
    static int heightOf(const SnapshotRowContent& content, Qt::LayoutDirection direction);
};
