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
        const auto& key = static_cast<const QKeyEvent&>(*event);
        return key.isAutoRepeat() && presses(key) && !isTyped(key);
    }
    return QObject::eventFilter(object, event);
}
