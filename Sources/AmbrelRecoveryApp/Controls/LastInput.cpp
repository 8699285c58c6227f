#include "AmbrelRecoveryApp/Controls/LastInput.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QKeyEvent>
#include <QPointer>

namespace {

bool isNavigation(int key) {
    switch (key) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
    case Qt::Key_Select:
    case Qt::Key_Backspace:
    case Qt::Key_Escape:
        return true;
    default:
        return false;
    }
}

} // namespace

LastInput::LastInput(QObject* application) : QObject(application) {
    application->installEventFilter(this);
}

bool LastInput::wasNavigationKey() {
    static QPointer<LastInput> shared;
    if (!shared) {
        shared = new LastInput(qApp);
    }
    return shared->wasNavigationKey_;
}

bool LastInput::eventFilter(QObject* /*object*/, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        if (isNavigation(static_cast<const QKeyEvent*>(event)->key())) {
            update(true);
        }
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::TabletPress:
    case QEvent::TouchBegin:
        update(false);
        break;
    default:
        break;
    }
    return false;
}

void LastInput::update(bool isNavigationKey) {
    if (wasNavigationKey_ == isNavigationKey) {
        return;
    }
    wasNavigationKey_ = isNavigationKey;
    QWidget* const focused = QApplication::focusWidget();
    if (const auto* const area = qobject_cast<QAbstractScrollArea*>(focused)) {
        area->viewport()->update();
    } else if (focused != nullptr) {
        focused->update();
    }
}
