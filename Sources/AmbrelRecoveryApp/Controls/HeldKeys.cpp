#include "AmbrelRecoveryApp/Controls/HeldKeys.h"

#include "AmbrelRecoveryApp/Controls/ReturnKey.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace {

bool isTyped(const QKeyEvent& event) {
    return event.key() == Qt::Key_Space && qobject_cast<QLineEdit*>(QApplication::focusWidget()) != nullptr;
}

bool presses(const QKeyEvent& event) {
    return isReturnKey(event) || event.key() == Qt::Key_Escape || event.key() == Qt::Key_Space;
}

} // namespace

HeldKeys::HeldKeys(QObject* parent) : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool HeldKeys::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) {
        return QObject::eventFilter(object, event);
    }
    // While assistive technology is active, an event filter of Qt intercepts every key and sends it again without its
    // timestamp. That filter may have been installed later than this one, which has to run first.
    QCoreApplication::instance()->installEventFilter(this);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (event->type() == QEvent::KeyPress) {
        return presses(key) && !isTyped(key) && isRepeat(key);
    }
    if (key.timestamp() != 0) {
        releasedKey_ = key.key();
        timeOfRelease_ = key.timestamp();
    }
    return false;
}

/// Displays report a repeat as a release and a press with the same timestamp. If Qt reads the first before the second
/// has arrived, it treats them as two keystrokes.
bool HeldKeys::isRepeat(const QKeyEvent& press) const {
    const bool isWithRelease =
        press.timestamp() != 0 && press.timestamp() == timeOfRelease_ && press.key() == releasedKey_;
    return press.isAutoRepeat() || isWithRelease;
}
