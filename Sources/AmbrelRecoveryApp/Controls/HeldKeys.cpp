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
    // For assistive technology that listens, a filter of the toolkit takes every key and sends it once more, without
    // its time. So this one goes before it, which may have been installed later.
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

/// A display tells of a repeat as of a release and a press at the same time. Where the toolkit has read the one before
/// the other has come, it takes them for two strokes.
bool HeldKeys::isRepeat(const QKeyEvent& press) const {
    const bool isWithRelease =
        press.timestamp() != 0 && press.timestamp() == timeOfRelease_ && press.key() == releasedKey_;
    return press.isAutoRepeat() || isWithRelease;
}
