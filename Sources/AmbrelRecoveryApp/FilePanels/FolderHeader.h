#pragma once

#include <QHeaderView>

/// The headings of a folder's list, in the application's dress, with a mark on the one that the list is sorted by. A
/// click sorts by a heading. Main thread.
class FolderHeader final : public QHeaderView {
    Q_OBJECT

public:
    /// What a heading needs beside its text, in device-independent pixels.
    static constexpr int padding = 28;

    explicit FolderHeader(QWidget* parent = nullptr);

protected:
    QSize sectionSizeFromContents(int section) const override;
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;
};
