#pragma once

#include <QKeyEvent>

#include <optional>

/// Whether the keyboard types capital letters, as far as its events tell. One source file per system implements it.
namespace CapsLock {

/// Whether Caps Lock is on after this press or release of a key; none where the event does not tell.
std::optional<bool> stateAfter(const QKeyEvent& event);

} // namespace CapsLock
