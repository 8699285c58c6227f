#pragma once

#include <QKeyEvent>

/// Whether `event` is Return or Enter on the keypad, with any modifiers: the key that presses the main button of the
/// current screen. Any thread.
inline bool isReturnKey(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}
