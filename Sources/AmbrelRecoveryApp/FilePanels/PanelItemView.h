#pragma once

class QAbstractItemView;

/// What the lists of the file panels have in common. Main thread.
namespace PanelItemView {

/// One row can be selected and none changed, dragged or asked for a menu; scrolled by pixels, with a quiet scroll bar.
void prepare(QAbstractItemView& view);

} // namespace PanelItemView
