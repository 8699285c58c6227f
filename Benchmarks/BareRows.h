#pragma once

#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRows.h"

#include <QAbstractScrollArea>
#include <QFont>
#include <QPixmap>

#include <vector>

/// What the snapshot list is measured against: the same rows drawn by hand and nothing else. There is no model, no
/// selection, no keyboard and no assistive technology, one direction and one scale; the words of every row are made
/// beforehand, and so are fonts and symbols.
class BareRows final : public QAbstractScrollArea {
public:
    explicit BareRows(const SnapshotRows& rows, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void paintRow(QPainter& painter, const QRect& row, const SnapshotRowContent& content) const;

    std::vector<SnapshotRowContent> contents_;
    std::vector<QString> factsLines_;
    const QFont dateFont_;
    const QFont factsFont_;
    const QFont payloadFont_;
    const QPixmap selectedMark_;
    const QPixmap mark_;
    const QPixmap complete_;
    const QPixmap incomplete_;
};
