#pragma once

class QKeyEvent;

/// Whether `event` is of Return or of Enter on the keypad, with whatever modifiers: the key that presses the main
/// button of what is shown. Any thread.
bool isReturnKey(const QKeyEvent& event);
