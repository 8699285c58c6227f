#pragma once

#include <QtCore/qnamespace.h>

class QAbstractItemView;

/// What the lists in file panels have in common. Main thread.
namespace PanelItemView {

/// The role for the `RecoverySymbol` of an item, stored as an int.
inline constexpr int symbolRole = Qt::UserRole;

/// Makes `view` draw its items in the application's style. Sets single row selection, without editing, dragging or a
/// context menu; scrolls by pixels, with an unobtrusive scroll bar.
void prepare(QAbstractItemView& view);

} // namespace PanelItemView
