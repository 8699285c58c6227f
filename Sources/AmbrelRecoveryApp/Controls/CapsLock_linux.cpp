#include "AmbrelRecoveryApp/Controls/CapsLock.h"

namespace {

/// The lock among the keyboard's modifiers: both X11 and Wayland number them in this way.
constexpr quint32 lockModifier = 1U << 1U;

} // namespace

std::optional<bool> CapsLock::stateAfter(const QKeyEvent& event) {
    const bool isOn = (event.nativeModifiers() & lockModifier) != 0;
    if (event.key() != Qt::Key_CapsLock) {
        return isOn;
    }
    // The event has the state before it. Pressing the key switches; by its release that has already happened or not,
    // depending on the direction.
    return event.type() == QEvent::KeyPress && !event.isAutoRepeat() ? std::optional(!isOn) : std::nullopt;
}
