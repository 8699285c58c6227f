#include "BareRows.h"

#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"

#include <QPainter>
#include <QScrollBar>

namespace {

constexpr int pitch = 90;
constexpr int rowHeight = 80;
constexpr qreal cornerRadius = 16;

QPixmap symbol(RecoverySymbol symbol, int size, const QColor& color) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    SymbolPainter::paint(painter, symbol, pixmap.rect(), color);
    return pixmap;
}

} // namespace

BareRows::BareRows(const SnapshotRows& rows, QWidget* parent)
    : QAbstractScrollArea(parent), dateFont_(recoveryFont(15, QFont::DemiBold)),
      factsFont_(recoveryFont(12, QFont::Normal)), payloadFont_(recoveryFont(12, QFont::Medium)),
      selectedMark_(symbol(RecoverySymbol::checkmarkCircleFill, 22, RecoveryPalette::copper())),
      mark_(symbol(RecoverySymbol::circle, 22, RecoveryPalette::muted())),
      complete_(symbol(RecoverySymbol::checkmarkCircleFill, 16, RecoveryPalette::success())),
      incomplete_(symbol(RecoverySymbol::exclamationmarkTriangleFill, 16, RecoveryPalette::warning())) {
    for (std::size_t row = 0; row < rows.count(); ++row) {
        contents_.push_back(rows.row(row));
        factsLines_.push_back(contents_.back().factsLine());
    }
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    viewport()->setAutoFillBackground(false);
}

void BareRows::resizeEvent(QResizeEvent* /*event*/) {
    verticalScrollBar()->setRange(0, static_cast<int>(contents_.size()) * pitch - viewport()->height());
}

void BareRows::scrollContentsBy(int /*dx*/, int /*dy*/) {
    viewport()->update();
}

void BareRows::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    const int offset = verticalScrollBar()->value();
    for (int row = offset / pitch; row * pitch - offset < viewport()->height(); ++row) {
        const QRect place(0, row * pitch - offset, viewport()->width(), rowHeight);
        paintRow(painter, place, contents_.at(static_cast<std::size_t>(row)));
    }
}

void BareRows::paintRow(QPainter& painter, const QRect& row, const SnapshotRowContent& content) const {
    painter.setPen(Qt::NoPen);
    painter.setBrush(RecoveryPalette::card());
    painter.drawRoundedRect(row, cornerRadius, cornerRadius);
    painter.setPen(RecoveryPalette::line());
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(row).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
    painter.drawPixmap(row.left() + 18, row.top() + 29, content.isSelected ? selectedMark_ : mark_);
    painter.drawPixmap(row.right() - 120, row.top() + 32, content.isComplete ? complete_ : incomplete_);
    painter.setFont(payloadFont_);
    painter.setPen(content.isComplete ? RecoveryPalette::success() : RecoveryPalette::warning());
    painter.drawText(row.right() - 97, row.top() + 45, content.payload);
    painter.setFont(dateFont_);
    painter.setPen(RecoveryPalette::primary());
    painter.drawText(row.left() + 55, row.top() + 33, content.date);
    painter.setFont(factsFont_);
    painter.setPen(RecoveryPalette::muted());
    painter.drawText(row.left() + 55, row.top() + 57,
                     factsLines_.at(static_cast<std::size_t>(&content - contents_.data())));
}
