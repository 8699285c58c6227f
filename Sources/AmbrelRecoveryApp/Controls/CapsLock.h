#pragma once

#include <QKeyEvent>

#include <optional>

/// The state of Caps Lock, as far as key events show it. One source file per platform implements it.
namespace CapsLock {

/// Whether Caps Lock is on after this press or release of a key; std::nullopt if the event does not show it.
std::optional<bool> stateAfter(const QKeyEvent& event);

} // namespace CapsLock
