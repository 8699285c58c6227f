#include "AmbrelRecoveryApp/Controls/CapsLock.h"

namespace {

/// The bit of Caps Lock among the native modifiers, the same on X11 and Wayland.
constexpr quint32 lockModifier = 1U << 1U;

} // namespace

std::optional<bool> CapsLock::stateAfter(const QKeyEvent& event) {
    const bool isOn = (event.nativeModifiers() & lockModifier) != 0;
    if (event.key() != Qt::Key_CapsLock) {
        return isOn;
    }
    // The event carries the state before it. Pressing the key toggles that state. On release, it depends on the
    // direction whether the state has already changed.
    return event.type() == QEvent::KeyPress && !event.isAutoRepeat() ? std::optional(!isOn) : std::nullopt;
}
