#include "AmbrelRecoveryApp/Controls/SegmentedPicker.h"

#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/RoundedPanel.h"
#include "AmbrelRecoveryApp/Controls/SegmentButton.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QSignalBlocker>

#include <algorithm>

namespace {

constexpr int inset = 4;
constexpr qreal cornerRadius = 11;

} // namespace

SegmentedPicker::SegmentedPicker(int count, QWidget* parent) : QWidget(parent), layout_(new QHBoxLayout(this)) {
    layout_->setContentsMargins(inset, inset, inset, inset);
    layout_->setSpacing(0);
    for (int index = 0; index < count; ++index) {
        auto* const segment = new SegmentButton(this);
        layout_->addWidget(segment, 1);
        segments_.append(segment);
        connect(segment, &SegmentButton::toggled, this, [this, index](bool isChosen) {
            if (isChosen) {
                emit chosen(index);
            }
        });
    }
}

void SegmentedPicker::apply(const QStringList& labels, int index) {
    Q_ASSERT(labels.size() == segments_.size());
    for (qsizetype position = 0; position < segments_.size(); ++position) {
        segments_.at(position)->setLabel(labels.at(position));
    }
    const QSignalBlocker blocker(segments_.at(index));
    segments_.at(index)->setChecked(true);
    arrange();
}

QSize SegmentedPicker::minimumSizeHint() const {
    int widest = 0;
    for (const SegmentButton* const segment : segments_) {
        widest = std::max(widest, segment->sizeHint().width());
    }
    return {widest + 2 * inset, QWidget::minimumSizeHint().height()};
}

void SegmentedPicker::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange();
}

/// One below the other if they do not fit side by side.
void SegmentedPicker::arrange() {
    int needed = 2 * inset;
    for (const SegmentButton* const segment : segments_) {
        needed += segment->sizeHint().width();
    }
    layout_->setDirection(needed <= width() ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

void SegmentedPicker::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    RoundedPanel::paint(painter, rect(), cornerRadius, RecoveryPalette::input(), RecoveryPalette::line());
}
