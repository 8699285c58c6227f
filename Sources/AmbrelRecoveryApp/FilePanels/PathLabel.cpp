#include "AmbrelRecoveryApp/FilePanels/PathLabel.h"

#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Foundation/FileNameText.h"

#include <QPainter>

PathLabel::PathLabel(QWidget* parent) : QWidget(parent) {
    setFont(recoveryFont(14, QFont::DemiBold));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void PathLabel::setPath(const std::filesystem::path& path) {
    text_ = FileNameText::readable(path.native());
    setAccessibleName(text_);
    update();
}

QSize PathLabel::sizeHint() const {
    return {0, fontMetrics().height()};
}

void PathLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(RecoveryPalette::primary());
    painter.setLayoutDirection(layoutDirection());
    painter.drawText(rect(), Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine,
                     FileNameText::isolated(fontMetrics().elidedText(text_, Qt::ElideMiddle, width())));
}
