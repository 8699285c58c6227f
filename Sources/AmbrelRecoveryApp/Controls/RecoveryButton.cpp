#include "AmbrelRecoveryApp/Controls/RecoveryButton.h"

#include "AmbrelRecoveryApp/Controls/CenteredText.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace {

constexpr int symbolSpacing = 9;

} // namespace

RecoveryButton::RecoveryButton(std::optional<RecoverySymbol> symbol, const QFont& font, int height, QWidget* parent)
    : QPushButton(parent), symbol_(symbol), height_(height) {
    setFont(font);
    setAutoDefault(true);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover, false);
}

void RecoveryButton::setLabel(const QString& label) {
    if (label_ == label) {
        return;
    }
    label_ = label;
    setAccessibleName(label);
    updateGeometry();
    update();
}

void RecoveryButton::setSymbolLabel(const QString& label) {
    setAccessibleName(label);
    setToolTip(label);
    setStyleSheet(RecoveryPalette::toolTipStyleSheet());
    updateGeometry();
}

void RecoveryButton::setButtonHeight(int height) {
    height_ = height;
    updateGeometry();
}

QSize RecoveryButton::sizeHint() const {
    return {2 * horizontalPadding() + contentWidth(font()), std::max(height_, fontMetrics().height() + 12)};
}

QSize RecoveryButton::minimumSizeHint() const {
    QFont asDesigned = font();
    asDesigned.setPixelSize(designedSize());
    return {2 * horizontalPadding() + contentWidth(asDesigned), sizeHint().height()};
}

QFont RecoveryButton::shownFont() const {
    QFont shown = font();
    while (shown.pixelSize() > designedSize() && 2 * horizontalPadding() + contentWidth(shown) > width()) {
        shown.setPixelSize(shown.pixelSize() - 1);
    }
    return shown;
}

int RecoveryButton::designedSize() const {
    return qRound(font().pixelSize() / TextScale::factor());
}

/// The width of symbol and label; the symbol is as large as the font.
int RecoveryButton::contentWidth(const QFont& font) const {
    const int labelWidth = static_cast<int>(std::ceil(QFontMetricsF(font).horizontalAdvance(label_)));
    const int spacing = label_.isEmpty() ? 0 : symbolSpacing;
    return labelWidth + (symbol_ ? font.pixelSize() + spacing : 0);
}

int RecoveryButton::horizontalPadding() const {
    return label_.isEmpty() ? 10 : 20;
}

void RecoveryButton::paintLabel(QPainter& painter, const QColor& color) const {
    const QFont shown = shownFont();
    const int symbolSize = shown.pixelSize();
    const int symbolWidth = symbol_ ? symbolSize + symbolSpacing : 0;
    const QRect content((width() - contentWidth(shown)) / 2, 0, contentWidth(shown), height());
    if (symbol_) {
        const QRect place(content.left(), (height() - symbolSize) / 2, symbolSize, symbolSize);
        SymbolPainter::paint(painter, *symbol_, QStyle::visualRect(layoutDirection(), content, place), color);
    }
    painter.setPen(color);
    painter.setFont(shown);
    CenteredText::paint(painter, QStyle::visualRect(layoutDirection(), content, content.adjusted(symbolWidth, 0, 0, 0)),
                        label_);
}
