#pragma once

class QAbstractItemView;

/// Common settings of the lists in file panels. Main thread.
namespace PanelItemView {

/// Sets single row selection, without editing, dragging or a context menu; scrolls by pixels, with an unobtrusive
/// scroll bar.
void prepare(QAbstractItemView& view);

} // namespace PanelItemView
