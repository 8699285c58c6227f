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
    return ReturnKey::is(event) || event.key() == Qt::Key_Escape || event.key() == Qt::Key_Space;
}

} // namespace

HeldKeys::HeldKeys(QObject* parent) : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool HeldKeys::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& press = static_cast<const QKeyEvent&>(*event);
        return presses(press) && !isTyped(press) && isRepeat(press);
    }
    if (event->type() == QEvent::KeyRelease) {
        const auto& release = static_cast<const QKeyEvent&>(*event);
        releasedKey_ = release.key();
        timeOfRelease_ = release.timestamp();
    }
    return QObject::eventFilter(object, event);
}

/// A display tells of a repeat as of a release and a press at the same time. Where the toolkit has read the one before
/// the other has come, it takes them for two strokes.
bool HeldKeys::isRepeat(const QKeyEvent& press) const {
    const bool isWithRelease =
        press.timestamp() != 0 && press.timestamp() == timeOfRelease_ && press.key() == releasedKey_;
    return press.isAutoRepeat() || isWithRelease;
}
