#pragma once

class QKeyEvent;

/// Whether `event` is Return or Enter on the keypad, with any modifiers: the key that presses the main button of the
/// current screen. Any thread.
bool isReturnKey(const QKeyEvent& event);
