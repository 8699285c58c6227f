#include "AmbrelRecoveryApp/Controls/FirstChoice.h"

#include <QAbstractItemView>
#include <QKeyEvent>

namespace {

/// The item that `key` selects; invalid if it is no navigation key or the list is empty.
QModelIndex choiceOf(const QAbstractItemView& list, int key) {
    const QModelIndex current = list.currentIndex();
    const int count = list.model()->rowCount(list.rootIndex());
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return current.isValid() ? current : list.model()->index(0, 0, list.rootIndex());
    case Qt::Key_Home:
        return list.model()->index(0, 0, list.rootIndex());
    case Qt::Key_End:
        return list.model()->index(count - 1, 0, list.rootIndex());
    default:
        return {};
    }
}

} // namespace

bool FirstChoice::select(QAbstractItemView& list, const QKeyEvent& event) {
    const bool isPlain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (!isPlain || list.selectionModel()->hasSelection()) {
        return false;
    }
    const QModelIndex choice = choiceOf(list, event.key());
    if (choice.isValid()) {
        list.selectionModel()->setCurrentIndex(choice, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
    return choice.isValid();
}
