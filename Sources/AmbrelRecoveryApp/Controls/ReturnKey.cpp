#include "AmbrelRecoveryApp/Controls/ReturnKey.h"

#include <QKeyEvent>

bool isReturnKey(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}
