#include "AmbrelRecoveryApp/RecoveryPalette.h"

namespace {

QColor opaque(float red, float green, float blue) {
    return QColor::fromRgbF(red, green, blue);
}

QColor whiteAt(float opacity) {
    return QColor::fromRgbF(1, 1, 1, opacity);
}

} // namespace

QColor RecoveryPalette::background() {
    return opaque(0.075F, 0.068F, 0.062F);
}

QColor RecoveryPalette::rail() {
    return opaque(0.095F, 0.086F, 0.078F);
}

QColor RecoveryPalette::card() {
    return whiteAt(0.065F);
}

QColor RecoveryPalette::input() {
    return QColor::fromRgbF(0, 0, 0, 0.18F);
}

QColor RecoveryPalette::primary() {
    return opaque(0.94F, 0.91F, 0.87F);
}

QColor RecoveryPalette::secondary() {
    return opaque(0.74F, 0.70F, 0.66F);
}

QColor RecoveryPalette::muted() {
    return opaque(0.55F, 0.51F, 0.47F);
}

QColor RecoveryPalette::copper() {
    return opaque(0.75F, 0.43F, 0.27F);
}

QColor RecoveryPalette::line() {
    return whiteAt(0.11F);
}

QColor RecoveryPalette::success() {
    return opaque(0.48F, 0.68F, 0.53F);
}

QColor RecoveryPalette::warning() {
    return opaque(0.87F, 0.59F, 0.28F);
}

QColor RecoveryPalette::onCopper() {
    return whiteAt(1);
}

QColor RecoveryPalette::raised() {
    return whiteAt(0.08F);
}

QColor RecoveryPalette::highlight() {
    return whiteAt(0.12F);
}

QColor RecoveryPalette::alert() {
    return opaque(0.15F, 0.137F, 0.127F);
}

QColor RecoveryPalette::withOpacity(QColor color, double factor) {
    color.setAlphaF(color.alphaF() * static_cast<float>(factor));
    return color;
}

QPalette RecoveryPalette::ofToolkit() {
    QPalette palette;
    palette.setColor(QPalette::Window, background());
    palette.setColor(QPalette::WindowText, primary());
    palette.setColor(QPalette::Base, Qt::transparent);
    palette.setColor(QPalette::Text, primary());
    palette.setColor(QPalette::PlaceholderText, muted());
    palette.setColor(QPalette::Button, rail());
    palette.setColor(QPalette::ButtonText, primary());
    palette.setColor(QPalette::Highlight, copper());
    palette.setColor(QPalette::HighlightedText, onCopper());
    return palette;
}

QString RecoveryPalette::toolTipStyleSheet() {
    return QStringLiteral("QToolTip { color: %1; background-color: %2; border: 1px solid %3; padding: 4px; }")
        .arg(primary().name(), alert().name(), muted().name());
}
