#include "AmbrelRecoveryApp/Controls/FirstChoice.h"

#include <QAbstractItemView>
#include <QKeyEvent>

#include <algorithm>

bool FirstChoice::select(QAbstractItemView& list, const QKeyEvent& event) {
    const bool isPlain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const int count = list.model()->rowCount();
    if (!isPlain || count == 0 || list.selectionModel()->hasSelection()) {
        return false;
    }
    int row = std::max(0, list.currentIndex().row());
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        break;
    case Qt::Key_Home:
        row = 0;
        break;
    case Qt::Key_End:
        row = count - 1;
        break;
    default:
        return false;
    }
    list.selectionModel()->setCurrentIndex(list.model()->index(row, 0),
                                           QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    return true;
}
