#include "AmbrelRecoveryApp/Controls/RecoveryButton.h"

#include "AmbrelRecoveryApp/Controls/CenteredText.h"
#include "AmbrelRecoveryApp/Controls/ReturnKey.h"
#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

#include <cmath>

namespace {

constexpr int horizontalPadding = 20;
constexpr int symbolSize = 18;
constexpr int symbolSpacing = 9;

} // namespace

RecoveryButton::RecoveryButton(std::optional<RecoverySymbol> symbol, const QFont& font, int height, QWidget* parent)
    : QPushButton(parent), symbol_(symbol), height_(height) {
    setFont(font);
    setAutoDefault(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover, false);
}

void RecoveryButton::setLabel(const QString& label) {
    if (label_ == label) {
        return;
    }
    label_ = label;
    // An ampersand would underline the next letter.
    setText(QString(label).replace(u'&', QStringLiteral("&&")));
    setAccessibleName(label);
    updateGeometry();
}

void RecoveryButton::setButtonHeight(int height) {
    height_ = height;
    updateGeometry();
}

QSize RecoveryButton::sizeHint() const {
    const int symbolWidth = symbol_ ? symbolSize + symbolSpacing : 0;
    return {2 * horizontalPadding + symbolWidth + labelWidth(), std::max(height_, fontMetrics().height() + 12)};
}

void RecoveryButton::keyPressEvent(QKeyEvent* event) {
    if (!ReturnKey::is(*event) || !event->isAutoRepeat()) {
        QPushButton::keyPressEvent(event);
    }
}

int RecoveryButton::labelWidth() const {
    return static_cast<int>(std::ceil(QFontMetricsF(font()).horizontalAdvance(label_)));
}

void RecoveryButton::paintLabel(QPainter& painter, const QColor& color) const {
    const int symbolWidth = symbol_ ? symbolSize + symbolSpacing : 0;
    const int contentWidth = symbolWidth + labelWidth();
    const QRect content((width() - contentWidth) / 2, 0, contentWidth, height());
    if (symbol_) {
        const QRect place(content.left(), (height() - symbolSize) / 2, symbolSize, symbolSize);
        SymbolPainter::paint(painter, *symbol_, QStyle::visualRect(layoutDirection(), content, place), color);
    }
    painter.setPen(color);
    painter.setFont(font());
    CenteredText::paint(painter, QStyle::visualRect(layoutDirection(), content, content.adjusted(symbolWidth, 0, 0, 0)),
                        label_);
}
