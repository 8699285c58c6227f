#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"

#include "AmbrelRecoveryApp/Foundation/MainThread.h"

namespace {

QColor opaque(float red, float green, float blue) {
    return QColor::fromRgbF(red, green, blue);
}

bool isContrastWanted = false;

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

QColor RecoveryPalette::panel() {
    return blended(card(), opaque(0.05F, 0.045F, 0.041F));
}

QColor RecoveryPalette::chosenRow() {
    return blended(withOpacity(copper(), 0.09), background());
}

QColor RecoveryPalette::chosenItem() {
    return withOpacity(copper(), 0.28);
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
    return whiteAt(isContrastWanted ? 0.5F : 0.11F);
}

QColor RecoveryPalette::outline() {
    return isContrastWanted ? line() : QColor(Qt::transparent);
}

QColor RecoveryPalette::success() {
    return opaque(0.48F, 0.68F, 0.53F);
}

QColor RecoveryPalette::warning() {
    return opaque(0.87F, 0.59F, 0.28F);
}

QColor RecoveryPalette::onCopper() {
    return background();
}

QColor RecoveryPalette::onDimmedCopper() {
    return whiteAt(1);
}

QColor RecoveryPalette::raised() {
    return whiteAt(0.08F);
}

QColor RecoveryPalette::highlight() {
    return whiteAt(0.12F);
}

QColor RecoveryPalette::scrollBar(bool isLit) {
    const float faintest = isContrastWanted ? 0.5F : 0.2F;
    return whiteAt(isLit ? faintest + 0.16F : faintest);
}

QColor RecoveryPalette::alert() {
    return opaque(0.15F, 0.137F, 0.127F);
}

QColor RecoveryPalette::blended(const QColor& color, const QColor& ground) {
    const float opacity = color.alphaF();
    const auto mixed = [opacity](float above, float below) { return above * opacity + below * (1 - opacity); };
    return opaque(mixed(color.redF(), ground.redF()), mixed(color.greenF(), ground.greenF()),
                  mixed(color.blueF(), ground.blueF()));
}

QColor RecoveryPalette::withOpacity(QColor color, double factor) {
    color.setAlphaF(color.alphaF() * static_cast<float>(factor));
    return color;
}

void RecoveryPalette::setContrastIncreased(bool isIncreased) {
    MainThread::require();
    isContrastWanted = isIncreased;
}

bool RecoveryPalette::isContrastIncreased() {
    return isContrastWanted;
}

QPalette RecoveryPalette::ofToolkit() {
    QPalette palette;
    palette.setColor(QPalette::Window, background());
    palette.setColor(QPalette::WindowText, primary());
    palette.setColor(QPalette::Base, background());
    palette.setColor(QPalette::AlternateBase, rail());
    palette.setColor(QPalette::Text, primary());
    palette.setColor(QPalette::PlaceholderText, muted());
    palette.setColor(QPalette::Button, alert());
    palette.setColor(QPalette::ButtonText, primary());
    palette.setColor(QPalette::Highlight, copper());
    palette.setColor(QPalette::HighlightedText, onCopper());
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, muted());
    }
    return palette;
}

QString RecoveryPalette::toolTipStyleSheet() {
    return QStringLiteral("QToolTip { color: %1; background-color: %2; border: 1px solid %3; padding: 4px; }")
        .arg(primary().name(), alert().name(), muted().name());
}
