#include "RowWidgets.h"

#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>

namespace {

QLabel* label(const QString& text, int size, QFont::Weight weight) {
    auto* const result = new QLabel(text);
    result->setFont(recoveryFont(size, weight));
    return result;
}

QFrame* rowWidget(const SnapshotRowContent& content) {
    auto* const frame = new QFrame;
    frame->setFrameShape(QFrame::StyledPanel);
    auto* const texts = new QVBoxLayout;
    texts->addWidget(label(content.date, 15, QFont::DemiBold));
    texts->addWidget(label(content.factsLine(), 12, QFont::Normal));
    auto* const row = new QHBoxLayout(frame);
    row->addWidget(label(content.isSelected ? QStringLiteral("●") : QStringLiteral("○"), 22, QFont::Normal));
    row->addLayout(texts, 1);
    row->addWidget(label(content.isComplete ? QStringLiteral("✓") : QStringLiteral("!"), 16, QFont::Normal));
    row->addWidget(label(content.payload, 12, QFont::Medium));
    return frame;
}

} // namespace

RowWidgets::RowWidgets(const SnapshotRows& rows, QWidget* parent) : QScrollArea(parent) {
    auto* const column = new QWidget;
    auto* const layout = new QVBoxLayout(column);
    for (std::size_t row = 0; row < rows.count(); ++row) {
        layout->addWidget(rowWidget(rows.row(row)));
    }
    setWidgetResizable(true);
    setWidget(column);
}
