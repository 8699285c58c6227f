#pragma once

#include <QHeaderView>

/// The headings of a folder's list, in the application's style. A mark shows the heading by which the list is sorted;
/// clicking a heading sorts by it. Main thread.
class FolderHeader final : public QHeaderView {
    Q_OBJECT

public:
    /// The width that a heading needs in addition to its text, in device-independent pixels.
    static constexpr int padding = 28;

    explicit FolderHeader(QWidget* parent = nullptr);

protected:
    QSize sectionSizeFromContents(int section) const override;
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;
};
