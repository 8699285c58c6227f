#include "AmbrelRecoveryApp/Controls/SegmentButton.h"

#include "AmbrelRecoveryApp/Controls/CenteredText.h"
#include "AmbrelRecoveryApp/Controls/FocusRing.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/ReturnKey.h"
#include "AmbrelRecoveryApp/Controls/RoundedPanel.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int segmentHeight = 28;
constexpr int horizontalPadding = 12;
constexpr qreal cornerRadius = 8;

QFont labelFont(bool isChosen) {
    return recoveryFont(13, isChosen ? QFont::DemiBold : QFont::Normal);
}

} // namespace

SegmentButton::SegmentButton(QWidget* parent) : QRadioButton(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void SegmentButton::setLabel(const QString& label) {
    if (accessibleName() == label) {
        return;
    }
    setAccessibleName(label);
    updateGeometry();
    update();
}

QSize SegmentButton::sizeHint() const {
    const QFontMetricsF metrics(labelFont(true));
    return {2 * horizontalPadding + static_cast<int>(std::ceil(metrics.horizontalAdvance(accessibleName()))),
            std::max(segmentHeight, static_cast<int>(std::ceil(metrics.height())) + 8)};
}

bool SegmentButton::hitButton(const QPoint& position) const {
    return rect().contains(position);
}

/// On some desktops, Qt would press the button.
void SegmentButton::keyPressEvent(QKeyEvent* event) {
    if (isReturnKey(*event)) {
        event->ignore();
    } else {
        QRadioButton::keyPressEvent(event);
    }
}

void SegmentButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : RecoveryPalette::disabledOpacity);
    if (isChecked()) {
        RoundedPanel::paint(painter, rect(), cornerRadius, RecoveryPalette::highlight(), RecoveryPalette::outline());
    }
    painter.setPen(isChecked() ? RecoveryPalette::primary() : RecoveryPalette::secondary());
    painter.setFont(labelFont(isChecked()));
    CenteredText::paint(painter, rect(), accessibleName());
    FocusRing::paint(painter, *this, rect(), cornerRadius, RecoveryPalette::copper());
}
