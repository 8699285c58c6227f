#pragma once

class QKeyEvent;

/// The key that presses the main button of what is shown.
namespace ReturnKey {

/// Whether `event` is of Return or of Enter on the keypad, with whatever modifiers.
bool is(const QKeyEvent& event);

} // namespace ReturnKey
