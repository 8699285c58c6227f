#pragma once

#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRows.h"

#include <QAbstractScrollArea>
#include <QFont>
#include <QPixmap>

#include <vector>

/// A baseline for the snapshot list: the same rows drawn by hand and nothing else. It has no model, selection, keyboard
/// support or accessibility, and supports one text direction and one scale. All row texts, fonts and symbols are
/// prepared in advance.
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
